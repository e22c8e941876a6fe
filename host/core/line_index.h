#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace brevan {

// A hash table from keys to places: of their lines in a text below 4 GiB, or in a list. It stores hashes and places
// only, eight bytes a slot, and leaves reading and comparing the keys to its caller: for a long file it
// is filled several times faster than a map of nodes.
class LineIndex {
 public:
  explicit LineIndex(size_t expected) {
    size_t slots = 16;
    while (slots < 2 * expected) { slots *= 2; }
    slots_.assign(slots, Slot{});
  }

  // Adds a place unless one with an equal key is there; returns the place that the key has then.
  template <class SameKey>
  uint32_t insert(uint32_t hash, uint32_t place, SameKey sameKey) {
    if (2 * (used_ + 1) > slots_.size()) { grow(); }
    Slot& slot = slots_[probe(hash, sameKey)];
    if (slot.place == kEmpty) {
      slot = {hash, place};
      ++used_;
    }
    return slot.place;
  }

  // kNowhere where the key is missing.
  template <class SameKey>
  [[nodiscard]] uint32_t find(uint32_t hash, SameKey sameKey) const {
    return slots_[probe(hash, sameKey)].place;
  }

  template <class SameKey>
  void remove(uint32_t hash, SameKey sameKey) {
    Slot& slot = slots_[probe(hash, sameKey)];
    if (slot.place != kEmpty) { slot.place = kRemoved; }
  }

  static constexpr uint32_t kNowhere = UINT32_MAX;

 private:
  static constexpr uint32_t kEmpty = kNowhere;
  static constexpr uint32_t kRemoved = kNowhere - 1;  // searches go on behind it
  struct Slot {
    uint32_t hash = 0;
    uint32_t place = kEmpty;
  };

  // The slot of the key, or the empty one where it would go. Half of the slots are empty at least.
  template <class SameKey>
  [[nodiscard]] size_t probe(uint32_t hash, SameKey sameKey) const {
    const size_t mask = slots_.size() - 1;
    for (size_t at = hash & mask;; at = (at + 1) & mask) {
      const Slot& slot = slots_[at];
      if (slot.place == kEmpty) { return at; }
      if (slot.hash == hash && slot.place != kRemoved && sameKey(slot.place)) { return at; }
    }
  }

  void grow() {
    std::vector<Slot> old(2 * slots_.size());
    old.swap(slots_);
    for (const Slot& slot : old) {
      if (slot.place != kEmpty) {
        slots_[probe(slot.hash, [](uint32_t) { return false; })] = slot;
      }
    }
  }

  std::vector<Slot> slots_;
  size_t used_ = 0;
};

}  // namespace brevan
