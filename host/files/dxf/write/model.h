#pragma once

#include <compare>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/drawing.h"
#include "host/files/dxf/write/tags.h"
#include "host/files/dxf/write/text.h"

namespace brevan {

// Handles of what every file holds; the rest are counted on from kFirstFree.
enum DxfFixedHandle : DxfHandle {
  kBlockRecordTable = 0x1,
  kLayerTable = 0x2,
  kStyleTable = 0x3,
  kLineTypeTable = 0x5,
  kViewTable = 0x6,
  kUcsTable = 0x7,
  kViewportTable = 0x8,
  kApplicationTable = 0x9,
  kDimensionStyleTable = 0xA,
  kRootDictionary = 0xC,
  kGroupDictionary = 0xD,
  kPlotStyleDictionary = 0xE,
  kPlotStylePlaceholder = 0xF,
  kStandardStyle = 0x11,
  kApplication = 0x12,
  kByBlockLineType = 0x14,
  kByLayerLineType = 0x15,
  kContinuousLineType = 0x16,
  kLayoutDictionary = 0x1A,
  kPaperRecord = 0x1B,
  kPaperBlock = 0x1C,
  kPaperBlockEnd = 0x1D,
  kPaperLayout = 0x1E,
  kModelRecord = 0x1F,
  kModelBlock = 0x20,
  kModelBlockEnd = 0x21,
  kModelLayout = 0x22,
  kDimensionStyle = 0x27,
  kActiveViewport = 0x29,
  kFirstFree = 0x30,
};

// A symbol as the symbols round it ask for it: what its texts measure and whether they are turned back
// depends on the outermost one.
struct DxfBlockKey {
  std::string symbol;
  bool realSize = false;
  bool turnsTexts = false;
  friend auto operator<=>(const DxfBlockKey&, const DxfBlockKey&) = default;
};

struct DxfBlock {
  DxfBlockKey key;
  std::string name;
  const SymbolDefinition* definition = nullptr;  // null: not in the drawing
  DxfHandle record = 0;
};

struct DxfGroup {
  std::string name;
  std::string description;
  bool unnamed = false;
  DxfHandle handle = 0;  // 0: without members
};

// What a drawing needs of a DXF file's tables, found by one walk before anything is written.
class DxfModel {
 public:
  DxfModel(const Drawing& drawing, DxfVersion version);

  [[nodiscard]] const Drawing& drawing() const { return drawing_; }
  [[nodiscard]] DxfVersion version() const { return version_; }
  [[nodiscard]] DxfHandle nextHandle() { return next_++; }
  [[nodiscard]] DxfHandle handleSeed() const { return next_; }

  // Drawings are written as seen on paper: a south-oriented one turned by half a turn.
  [[nodiscard]] bool turned() const { return turned_; }
  [[nodiscard]] Point shown(Point p) const { return turned_ ? Point{-p.x, -p.y} : p; }

  [[nodiscard]] const Box& extents() const { return extents_; }  // as shown
  [[nodiscard]] const Sheet& sheet() const { return sheet_; }

  [[nodiscard]] const std::string& layerName(int layer) const { return layerNames_[static_cast<size_t>(layer)]; }
  [[nodiscard]] std::string lineTypeName(int number) const;
  [[nodiscard]] const std::set<int>& lineTypes() const { return lineTypes_; }
  [[nodiscard]] const std::string& styleName(std::string_view font) const { return styles_.find(font)->second; }
  // Font name (encoded as in the drawing) to style name.
  [[nodiscard]] const std::map<std::string, std::string, std::less<>>& styles() const { return styles_; }
  [[nodiscard]] const std::vector<DxfBlock>& blocks() const { return blocks_; }
  [[nodiscard]] const DxfBlock& block(const DxfBlockKey& key) const { return blocks_[blockIndex_.find(key)->second]; }
  // The key of a symbol placed in the drawing itself.
  [[nodiscard]] DxfBlockKey outermostKey(const std::string& symbol) const;
  // Dimensions of the drawing in drawing order; the record of the n-th one's picture block.
  [[nodiscard]] const std::vector<PrimitiveId>& dimensions() const { return dimensions_; }
  [[nodiscard]] DxfHandle dimensionRecord(size_t n) const { return firstDimensionRecord_ + static_cast<DxfHandle>(n); }
  // By GroupId - 1.
  [[nodiscard]] const std::vector<DxfGroup>& groups() const { return groups_; }

 private:
  void measure();
  void nameLayers();
  void nameGroups();
  void nameBlocks();
  void nameStyles();
  void note(const Primitive& primitive);
  void noteBlock(const DxfBlockKey& key);

  const Drawing& drawing_;
  DxfVersion version_;
  bool turned_;
  Box extents_;
  Sheet sheet_;
  DxfHandle next_ = kFirstFree;
  std::vector<std::string> layerNames_;
  std::set<int> lineTypes_ = {1};
  std::map<std::string, std::string, std::less<>> styles_;
  std::vector<DxfBlock> blocks_;
  std::map<DxfBlockKey, size_t> blockIndex_;
  std::vector<PrimitiveId> dimensions_;
  DxfHandle firstDimensionRecord_ = 0;
  std::vector<DxfGroup> groups_;
};

}  // namespace brevan
