#pragma once

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

struct DxfFont {
  std::string font = "Arial";
  double height = 0.0;  // 0: each text has its own
  double widthFactor = 1.0;
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

  // A layer that no table names is made. Names count without regard to case.
  int layerOf(std::string_view name);
  [[nodiscard]] const DxfFont& fontOf(std::string_view name) const;
  // Holds until the next is asked for.
  const DxfLook& lookOf(const DxfRecord& record);
  // Line type and width of what is by layer are the layer's.
  [[nodiscard]] Primitive styled(const DxfLook& look) const;
  [[nodiscard]] int layerCount() const { return static_cast<int>(layers_.size()); }
  [[nodiscard]] const Layer& layer(int index) const { return layers_[static_cast<size_t>(index)].layer; }

 private:
  struct LayerRead {
    Layer layer;
    int linetype = 1;
    double width = 0.0;
  };
  template <class Value>
  using ByName = std::unordered_map<std::string, Value, HashWithoutCase, EqualWithoutCase>;

  DxfLook lookRead(const DxfRecord& record);
  int lineTypeOf(std::string_view name);
  std::string nameRead(std::string_view bytes) const { return dxfNameRead(bytes, encoding_).text; }

  DxfEncoding encoding_ = DxfEncoding::kWindows1252;
  std::vector<LayerRead> layers_;
  ByName<int> layerIndex_;
  ByName<int> lineTypes_;
  ByName<DxfFont> fonts_;
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
