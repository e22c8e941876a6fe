#pragma once

#include <span>
#include <string_view>

#include "host/drawing/dash_pattern.h"
#include "host/drawing/drawing.h"

namespace brevan {

// How a stroke is drawn: everything resolved, nothing left "by layer".
struct StrokeStyle {
  int layer = 0;
  int pen = 1;         // 1 to 255
  int linetype = 1;    // see line_types.h
  double width = 0.0;  // millimetres; 0: as thin as still reads
  DashPattern dashes;  // of a line or arc, as laid along it
};

// One line of a text.
struct TextStroke {
  std::string_view text;  // Windows-1252
  std::string_view font;
  Point baseline;       // its left end
  double angle = 0.0;   // degrees counter-clockwise
  double height = 0.0;  // em size, millimetres
  double width = 0.0;   // advance, millimetres, the width factor included
  double widthFactor = 1.0;
  bool underlined = false;
};

// What takes the strokes of a drawing: coordinates are millimetres on paper, y upwards.
class StrokeSink {
 public:
  virtual ~StrokeSink() = default;
  virtual void line(const StrokeStyle& style, Point a, Point b) = 0;
  virtual void arc(const StrokeStyle& style, const ArcShape& arc) = 0;
  virtual void text(const StrokeStyle& style, const TextStroke& text) = 0;
  virtual void polygon(const StrokeStyle& style, std::span<const Point> corners) = 0;  // filled
};

// Resolves primitives into strokes on paper: layers' pens, arrow heads, texts line by line, symbols and
// dimensions. Every picture of a drawing is made of what this gives.
class StrokeWalk {
 public:
  // toPaper: from drawing units to millimetres on paper, without mirroring (see toPage). zoom: what lengths on paper,
  // those of texts, heads and symbols, are multiplied with; widths of lines and patterns stay.
  StrokeWalk(const Drawing& drawing, const Transform& toPaper, StrokeSink& sink, double zoom = 1.0);

  // Throws HostFailure where the symbols shown so far come to more than SymbolCounts::kMostPlacedParts.
  void primitive(const Primitive& primitive);

 private:
  // Where the parts of a symbol come to lie.
  struct Placement {
    Transform toPaper;
    double paperScale = 1.0;  // of text heights and arrow heads
    bool turned = false;      // by the half turn of a south-oriented sheet, from which texts are turned back
  };

  void line(const StrokeStyle& style, const Line& line);
  void arc(const StrokeStyle& style, const Arc& arc);
  void text(StrokeStyle style, const Text& text);
  void arrow(const StrokeStyle& style, const Arrow& arrow);
  void placeSymbol(const StrokeStyle& style, Symbol symbol);
  void symbolParts(const StrokeStyle& style, std::string_view name, const Placement& placement);
  void part(const StrokeStyle& style, const Geometry& geometry, const Placement& placement);
  void dimension(const StrokeStyle& style, const Dimension& dimension);
  void hatch(const StrokeStyle& style, const Hatch& hatch, double paperScale);
  [[nodiscard]] int resolvedPen(int pen, int layer) const;

  const Drawing& drawing_;
  Transform toPaper_;
  bool turned_;
  StrokeSink& sink_;
  double zoom_;
  size_t placedParts_ = 0;
};

// The width a stroke is drawn with on paper, millimetres.
inline constexpr double kHairline = 0.13;
inline double strokeWidth(const StrokeStyle& style) { return style.width > 0.0 ? style.width : kHairline; }

}  // namespace brevan
