#pragma once

#include <array>
#include <string>
#include <vector>

#include "host/files/dxf/write/model.h"
#include "host/geometry/loop.h"

namespace brevan {

// Where entities are written: the drawing itself or a block, each with its own lengths.
struct DxfSpace {
  DxfHandle owner = kModelRecord;
  double paperMillimetre = 1.0;      // what a millimetre on paper is in this space's lengths
  const DxfBlock* symbol = nullptr;  // null: the drawing or a dimension's picture
  bool turned = false;               // points are turned by half a turn about the origin
};

// Handles of one primitive's entities, which follow each other.
struct DxfEntities {
  DxfHandle first = 0;
  DxfHandle count = 0;
};

// The nearest of the widths that DXF knows, in hundredths of a millimetre; -3, the reader's default, for none.
int dxfLineweight(double tenths);

struct DxfTextFrame;

// Writes primitives as the entities nearest to them.
//
// Arcs run counter-clockwise, so a clockwise one is written from its end. An arrow is a LINE and a SOLID.
// A text of one line is a TEXT whose baseline is where it is shown, one of several an MTEXT. A symbol is
// an INSERT of its block, mirrored by a negative scale. A hatch is a HATCH whose pattern stands in it. A dimension is a
// DIMENSION with its picture block. Dashed lines and arcs stretch the pattern of their line type, so that it comes to
// lie as on paper where readers lay it.
class DxfEntityWriter {
 public:
  DxfEntityWriter(DxfModel& model, DxfTags& tags, const DxfSpace& space);

  DxfEntities write(const Primitive& primitive);
  // Writes a dimension, which has its number in the order of the drawing.
  DxfEntities writeDimension(const Primitive& primitive, size_t number);
  // In the first pen: a full circle as it is, any other loop as one closed polyline.
  void writeLoop(const Loop& loop);
  // The blocks' content.
  void writeSymbolParts(const DxfBlock& block);
  void writeDimensionPicture(const Primitive& primitive);

 private:
  void begin(std::string_view kind);
  void beginCurve(std::string_view kind, const Curve& curve);
  void setReactors(const Primitive& primitive);
  void setStyle(const Primitive& primitive, int pen);
  void line(const Line& line);
  void arc(const Arc& arc);
  void text(const Primitive& primitive, Text text);
  void singleLine(const Text& text, const DxfTextFrame& frame);
  void severalLines(const Text& text, const DxfTextFrame& frame, std::vector<std::string> lines);
  void arrow(const Primitive& primitive, const Arrow& arrow);
  void solid(const std::array<Point, 3>& corners);
  void symbol(const Symbol& symbol);
  void hatch(const Hatch& hatch);
  void hatchPath(const HatchLoop& loop);
  void hatchLines(const Hatch& hatch, const HatchLines& lines);
  [[nodiscard]] Point placed(Point p) const { return space_.turned ? Point{-p.x, -p.y} : p; }

  DxfModel& model_;
  DxfTags& tags_;
  DxfSpace space_;
  std::string beforeStyle_;  // owner and subclass
  std::string style_;        // layer, line type, colour, width of the present primitive
  std::string reactors_;
  bool styled_ = false;
  struct StyleKey {
    int layer = 0, pen = 0, linetype = 0;
    double width = 0.0;
    friend bool operator==(const StyleKey&, const StyleKey&) = default;
  } styleKey_;
  GroupId reactorsOf_ = 0;
};

}  // namespace brevan
