#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "host/drawing/drawing.h"
#include "host/files/dxf/read/blocks.h"

namespace brevan {

// Takes the entities of a file's drawing and makes a Drawing of them.
class DxfBuilder : public DxfSink {
 public:
  DxfBuilder(DxfStyles& styles, DxfBlocks& blocks, DxfReport& report)
      : styles_(styles), blocks_(blocks), report_(report) {
    drawing_.beginLoading();
  }

  // Before anything is taken.
  void setParameters(const Parameters& parameters);
  void setSheet(Sheet sheet) { drawing_.setSheet(std::move(sheet)); }

  // What is taken from here on belongs to the entity of the handle (0: to none).
  void beginEntity(uint64_t handle);
  void take(const DxfLook& look, Geometry&& geometry) override;
  void insert(const DxfLook& look, DxfInsert insert) override;
  void replaceLast(const DxfLook& look, Geometry geometry) override;

  void addGroup(std::string_view parent, std::string_view name, const std::vector<uint64_t>& members);
  Drawing finish(std::string_view currentLayer);

 private:
  struct Place {
    uint64_t handle = 0;
    PrimitiveId before = 0;  // the primitive before its first, and its last
    PrimitiveId last = 0;
  };
  // Their handles must rise.
  [[nodiscard]] std::vector<Place>::const_iterator entityOf(uint64_t handle) const;
  void push(const Primitive& style, Geometry&& geometry);
  void reachLayer(int index);
  void explode(const DxfBlockRead& block, const DxfInsert& insert, const Transform& outer, const DxfLook& look);
  void explodeOnce(const DxfBlockRead& block, const Transform& placing, const DxfLook& look);
  void placeSymbol(const DxfBlockRead& block, const DxfInsert& insert, const DxfLook& look);
  [[nodiscard]] Symbol symbolOf(const DxfInsert& insert) const;
  void defineSymbol(const DxfBlockRead& block);
  const Primitive& styled(const DxfLook& look);
  [[nodiscard]] Geometry inDrawing(Geometry geometry) const;

  DxfStyles& styles_;
  DxfBlocks& blocks_;
  DxfReport& report_;
  Parameters parameters_;
  Drawing drawing_;
  int layersIn_ = 0;
  std::vector<Place> entities_;
  bool inEntity_ = false;
  bool handlesRise_ = true;
  size_t expanded_ = 0;
  DxfLook lastLook_{-1};
  Primitive lastStyle_;
  std::map<std::string, SymbolDefinition> symbols_;
};

}  // namespace brevan
