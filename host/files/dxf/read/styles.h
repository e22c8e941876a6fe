#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/drawing/drawing.h"
#include "host/files/dxf/read/record.h"
#include "host/files/dxf/read/text.h"

namespace brevan {

// What a DXF file's entities ask of a drawing: its own number, or what the layer or the block's place decides.
struct DxfLook {
  static constexpr int kByLayer = 256;
  static constexpr int kByBlock = 0;
  int layer = 0;
  int pen = kByLayer;
  int linetype = kByLayer;
  double width = kByLayer;  // tenths of a millimetre
  friend bool operator==(const DxfLook&, const DxfLook&) = default;
};

// What parts of a block leave to the layer on which it is placed, or to the placement itself.
struct DxfOpenLook {
  bool penToLayer = false;
  bool lineTypeToLayer = false;
  bool lineTypeToBlock = false;
  bool widthToLayer = false;
  bool widthToBlock = false;
  [[nodiscard]] bool any() const {
    return penToLayer || lineTypeToLayer || lineTypeToBlock || widthToLayer || widthToBlock;
  }
  void add(const DxfLook& look) {
    penToLayer = penToLayer || look.pen == DxfLook::kByLayer;
    lineTypeToLayer = lineTypeToLayer || look.linetype == DxfLook::kByLayer;
    lineTypeToBlock = lineTypeToBlock || look.linetype == DxfLook::kByBlock;
    widthToLayer = widthToLayer || look.width == DxfLook::kByLayer;
    widthToBlock = widthToBlock || look.width < 0.0;
  }
};

struct DxfFont {
  std::string font = "Arial";
  double height = 0.0;  // 0: each text has its own
  double widthFactor = 1.0;
};

// How large the heads of leaders are, in lengths of the space. A scale of 0 stands for sheets that choose their own.
struct DxfHeadSize {
  double scale = 1.0;
  double size = 0.18;  // what goes without saying in this format
  [[nodiscard]] double length() const { return (scale > 0.0 ? scale : 1.0) * std::max(size, 0.0); }
};

// Layers, line types and text styles of a DXF file, found by name, and the inverse of how they are written.
class DxfStyles {
 public:
  DxfStyles();
  void setEncoding(DxfEncoding encoding) { encoding_ = encoding; }
  [[nodiscard]] DxfEncoding encoding() const { return encoding_; }

  void addLayer(const DxfRecord& record);
  void addLineType(const DxfRecord& record);
  void addFont(const DxfRecord& record);
  // What the file's header says, for styles that say nothing and leaders without a style.
  void setHeadSize(const DxfHeadSize& heads) { heads_ = heads; }
  void addHeadSize(const DxfRecord& record);

  // A layer that no table names is made. Names count without regard to case.
  int layerOf(std::string_view name);
  [[nodiscard]] const DxfFont& fontOf(std::string_view name) const;
  // The size that a leader shows, which may differ from its style's.
  [[nodiscard]] DxfHeadSize headSizeOf(const DxfRecord& leader) const;
  // Holds until the next is asked for.
  const DxfLook& lookOf(const DxfRecord& record);
  // Line type and width of what is by layer are the layer's.
  [[nodiscard]] Primitive styled(const DxfLook& look) const;
  // Whether parts that leave this open look the same in a symbol, whose line types and widths are fixed and whose open
  // pens are that of the symbol.
  [[nodiscard]] bool looksAlikeAsSymbol(const DxfOpenLook& open, const DxfLook& placement) const;
  [[nodiscard]] int layerCount() const { return static_cast<int>(layers_.size()); }
  [[nodiscard]] const Layer& layer(int index) const { return layers_[static_cast<size_t>(index)]; }

 private:
  template <class Value>
  using ByName = std::unordered_map<std::string, Value, HashWithoutCase, EqualWithoutCase>;

  DxfLook lookRead(const DxfRecord& record);
  int lineTypeOf(std::string_view name);
  std::string nameRead(std::string_view bytes) const { return dxfNameRead(bytes, encoding_).text; }

  DxfEncoding encoding_ = DxfEncoding::kWindows1252;
  std::vector<Layer> layers_;
  ByName<int> layerIndex_;
  ByName<int> lineTypes_;
  ByName<DxfFont> fonts_;
  DxfHeadSize heads_;
  ByName<DxfHeadSize> headSizes_;
  DxfFont plainFont_;
  std::string lastLayerName_;  // as in the file
  int lastLayer_ = -1;
  std::string lastLineTypeName_;
  int lastLineType_ = 1;
  DxfLook look_;
  uint32_t lookHead_ = 0;  // the head that look_ follows from; 0: none
};

// The pen of a colour: an entry of the colour index and, where there is one, its very colour (-1: none).
int penOfColour(int index, long trueColour);
// Millimetres of an $INSUNITS code; 0 for one that is no length.
double millimetresOfUnit(int code);

}  // namespace brevan
