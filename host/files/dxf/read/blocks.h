#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/files/dxf/own_notes.h"
#include "host/files/dxf/read/pieces.h"

namespace brevan {

// A block of a DXF file.
struct DxfBlockRead {
  std::string name;
  Point base;
  DxfBlockOrigin origin;
  std::vector<DxfPiece> pieces;
};

// The blocks by name. What a block expands to is counted before anything of it is made, so that one that contains
// itself, or one of few bytes and endless parts, is refused by name.
class DxfBlocks {
 public:
  static constexpr size_t kMostParts = 2'000'000;
  static constexpr size_t kDeepest = 64;

  // Of two blocks of one name the first counts; the sink takes the second's content all the same.
  DxfSink& begin(DxfBlockRead block);
  [[nodiscard]] const DxfBlockRead* find(std::string_view name) const;
  // Primitives that all the placements of an insert come to; throws DxfRefusal for more than kMostParts, for a
  // block that contains itself and for blocks nested deeper than kDeepest.
  size_t partsOf(const DxfInsert& insert);
  // Null where no symbol can stand for the block: for one it must lie on layer 0, what it holds be placed in one scale
  // and look as its own parts or the whole say. Ask for its parts first.
  const DxfOpenLook* asSymbol(const DxfBlockRead& block);

 private:
  class Collector : public DxfSink {
   public:
    void take(const DxfLook& look, Geometry&& geometry) override;
    void insert(const DxfLook& look, DxfInsert insert) override;
    void replaceLast(const DxfLook& look, Geometry geometry) override;
    std::vector<DxfPiece>* pieces = nullptr;
  };
  struct Entry {
    DxfBlockRead block;
    size_t parts = 0;  // counted already, where above 0
    bool judged = false;
    std::optional<DxfOpenLook> asSymbol;
  };
  std::optional<DxfOpenLook> judge(const DxfBlockRead& block);
  bool leaveOpen(const DxfPiece& piece, DxfOpenLook& open);
  size_t blockParts(Entry& entry);

  std::unordered_map<std::string, Entry, HashWithoutCase, EqualWithoutCase> blocks_;
  std::vector<const Entry*> open_;
  Collector collector_;
  std::vector<DxfPiece> unused_;
};

// Whether circles stay circles, and of what size.
bool hasOneScale(const DxfInsert& insert);

}  // namespace brevan
