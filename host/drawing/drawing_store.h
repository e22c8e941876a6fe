#pragma once

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "host/drawing/drawing.h"

// How a drawing keeps its primitives; for the sources of Drawing alone.
namespace brevan {

// A primitive's place; ids index it, so a removed one leaves its place empty.
struct Drawing::Slot {
  uint32_t layerPosition = 0;  // in the lists of its layer and its group
  uint32_t groupPosition = 0;
  uint32_t selectionPosition = 0;
  bool there = false;
  bool indexed = false;
  bool selected = false;
  Primitive primitive;  // last, so that its layer and group lie beside what is looked at with them
};

// Places in blocks, so that growing moves nothing.
class Drawing::Store {
 public:
  static constexpr size_t kBlock = 1024;
  Slot& at(PrimitiveId id) {
    const size_t place = static_cast<size_t>(id) - 1;
    return (*blocks_[place / kBlock])[place % kBlock];
  }
  void reach(PrimitiveId id) {
    while (blocks_.size() * kBlock < static_cast<size_t>(id)) {
      blocks_.push_back(std::make_unique_for_overwrite<Block>());
    }
  }

 private:
  using Block = std::array<Slot, kBlock>;
  std::vector<std::unique_ptr<Block>> blocks_;
};

// So that the next push_back cannot fail.
template <class Item>
void makeRoom(std::vector<Item>& list) {
  if (list.size() == list.capacity()) { list.reserve(std::max<size_t>(16, 2 * list.size())); }
}

// Swap-removal from a list whose items know their position.
template <class Position>
void removeAt(std::vector<PrimitiveId>& list, uint32_t position, const Position& positionOf) {
  list[position] = list.back();
  positionOf(list[position]) = position;
  list.pop_back();
}

}  // namespace brevan
