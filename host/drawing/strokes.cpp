#include "host/drawing/strokes.h"

#include "frame/host/core_services.h"
#include "host/drawing/arrow_shape.h"
#include "host/drawing/dimension_strokes.h"
#include "host/drawing/hatch_strokes.h"
#include "host/drawing/line_types.h"
#include "host/drawing/symbol_expansion.h"
#include "host/drawing/text_layout.h"

namespace brevan {

StrokeWalk::StrokeWalk(const Drawing& drawing, const Transform& toPaper, StrokeSink& sink, double zoom)
    : drawing_(drawing), toPaper_(toPaper), turned_(drawing.parameters().turnedOnPaper()), sink_(sink), zoom_(zoom) {}

int StrokeWalk::resolvedPen(int pen, int layer) const {
  if (pen != kPenByLayer) { return pen; }
  const Layer* of = drawing_.layer(layer);
  return of == nullptr ? 1 : of->pen;
}

void StrokeWalk::primitive(const Primitive& primitive) {
  const StrokeStyle style = {
      primitive.layer, resolvedPen(primitive.pen, primitive.layer), primitive.linetype, primitive.width / 10.0, {}};
  struct Visitor {
    StrokeWalk& walk;
    const StrokeStyle& style;
    void operator()(const Line& line) const { walk.line(style, {walk.toPaper_(line.a), walk.toPaper_(line.b)}); }
    void operator()(const Arc& arc) const {
      walk.arc(style, {walk.toPaper_(arc.start), walk.toPaper_(arc.centre), walk.toPaper_(arc.end), arc.clockwise});
    }
    void operator()(Text text) const {
      text.at = walk.toPaper_(text.at);
      text.height *= walk.zoom_;
      walk.text(style, text);
    }
    void operator()(Arrow arrow) const {
      arrow.p1 = walk.toPaper_(arrow.p1);
      arrow.p2 = walk.toPaper_(arrow.p2);
      arrow.length *= walk.zoom_;
      arrow.width *= walk.zoom_;
      walk.arrow(style, arrow);
    }
    void operator()(const Symbol& symbol) const { walk.placeSymbol(style, symbol); }
    void operator()(const Dimension& dimension) const { walk.dimension(style, dimension); }
    void operator()(const Hatch& hatch) const {
      Hatch placed = transformed(hatch, walk.toPaper_);
      placed.angle = hatch.angle;  // which is as on paper however the sheet lies
      walk.hatch(style, placed, walk.zoom_);
    }
  };
  std::visit(Visitor{*this, style}, primitive.geometry);
}

void StrokeWalk::line(const StrokeStyle& style, const Line& line) {
  if (lineType(style.linetype).pattern.empty()) {
    sink_.line(style, line.a, line.b);
    return;
  }
  StrokeStyle dashed = style;
  dashed.dashes = dashesOf(style.linetype, line);
  sink_.line(dashed, line.a, line.b);
}

void StrokeWalk::arc(const StrokeStyle& style, const Arc& arc) {
  if (lineType(style.linetype).pattern.empty()) {
    sink_.arc(style, arc);
    return;
  }
  StrokeStyle dashed = style;
  dashed.dashes = dashesOf(style.linetype, arc);
  sink_.arc(dashed, arc);
}

void StrokeWalk::text(StrokeStyle style, const Text& text) {
  style.pen = resolvedPen(text.pen, style.layer);
  const TextLayout layout = layOut(text);
  const Point along = unitOfDegrees(text.angle / 10.0);
  const Transform turn = Transform::shift(text.at) * Transform::rotation({}, along.x, along.y);
  for (const PlacedLine& line : layout.lines) {
    if (line.text.empty()) { continue; }
    TextStroke stroke;
    stroke.text = line.text;
    stroke.font = text.font;
    stroke.baseline = turn(line.baseline);
    stroke.angle = text.angle / 10.0;
    stroke.height = layout.height;
    stroke.width = line.width;
    stroke.widthFactor = text.widthFactor == 0.0 ? 1.0 : text.widthFactor;
    stroke.underlined = (text.style & kUnderlined) != 0;
    sink_.text(style, stroke);
  }
}

void StrokeWalk::arrow(const StrokeStyle& style, const Arrow& arrow) {
  const ArrowShape shape = arrowShape(arrow, 1.0);
  if (!shape.drawn) { return; }
  if (shape.hasShaft) { sink_.line(style, shape.shaft.a, shape.shaft.b); }
  StrokeStyle head = style;
  if (shape.headPen != kPenByLayer) { head.pen = shape.headPen; }
  sink_.polygon(head, shape.head);
}

void StrokeWalk::hatch(const StrokeStyle& style, const Hatch& hatch, double paperScale) {
  const HatchFill fill(hatch, paperScale);
  if (hatch.pattern == kSolidPattern) {
    sink_.polygon(style, fill.outline());
    return;
  }
  StrokeStyle continuous = style;
  continuous.linetype = 1;
  for (const HatchLines& lines : linesOf(hatch)) {
    fill.forEachStroke(lines, [&](Point a, Point b) { sink_.line(continuous, a, b); });
  }
}

void StrokeWalk::dimension(const StrokeStyle& style, const Dimension& dimension) {
  Primitive stroke;
  stroke.layer = style.layer;
  stroke.pen = style.pen;
  stroke.width = style.width * 10.0;
  for (Geometry& geometry : dimensionStrokes(dimension, drawing_.parameters())) {
    if (Text* text = std::get_if<Text>(&geometry)) { text->pen = style.pen; }
    stroke.geometry = std::move(geometry);
    primitive(stroke);
  }
}

void StrokeWalk::placeSymbol(const StrokeStyle& style, Symbol symbol) {
  placedParts_ += drawing_.symbolParts(symbol.name);
  if (placedParts_ > SymbolCounts::kMostPlacedParts) {
    throw HostFailure("The symbols shown up to \"" + symbol.name + "\" come to more than " +
                      std::to_string(SymbolCounts::kMostPlacedParts) + " parts.");
  }
  const SymbolDefinition* definition = drawing_.symbol(symbol.name);
  const bool turns = turned_ && (definition == nullptr || !definition->upright);
  const bool realSize = definition != nullptr && !definition->paperSize;
  const double size = realSize ? symbol.scale / drawing_.parameters().scale() : symbol.scale;
  symbol.at = toPaper_(symbol.at);
  if (turns) { symbol.rotation += 180.0; }
  symbolParts(style, symbol.name, {symbolPlacement(symbol, size * zoom_), symbol.scale * zoom_, turns});
}

void StrokeWalk::symbolParts(const StrokeStyle& style, std::string_view name, const Placement& placement) {
  const SymbolDefinition* definition = drawing_.symbol(name);
  if (definition == nullptr) {
    for (const Geometry& geometry : missingSymbolStrokes()) { part(style, geometry, placement); }
    return;
  }
  for (const Primitive& primitive : definition->parts) {
    StrokeStyle own = style;
    if (primitive.pen != kPenByLayer) { own.pen = primitive.pen; }
    own.linetype = primitive.linetype;
    own.width = primitive.width / 10.0;
    part(own, primitive.geometry, placement);
  }
}

void StrokeWalk::part(const StrokeStyle& style, const Geometry& geometry, const Placement& placement) {
  struct Visitor {
    StrokeWalk& walk;
    const StrokeStyle& style;
    const Placement& placement;
    void operator()(const Line& line) const { walk.line(style, line); }
    void operator()(const Arc& arc) const { walk.arc(style, arc); }
    void operator()(Text text) const {
      if (text.pen == kPenByLayer) { text.pen = style.pen; }
      text.height *= placement.paperScale;
      walk.text(style, placement.turned ? turnedOver(std::move(text)) : text);
    }
    void operator()(Arrow arrow) const {
      arrow.length *= placement.paperScale;
      arrow.width *= placement.paperScale;
      walk.arrow(style, arrow);
    }
    void operator()(const Symbol&) const {}
    void operator()(const Dimension&) const {}
    void operator()(const Hatch& hatch) const { walk.hatch(style, hatch, placement.paperScale); }
  };
  if (const Dimension* dimension = std::get_if<Dimension>(&geometry)) {
    for (const Geometry& stroke : dimensionStrokes(*dimension, Parameters())) { part(style, stroke, placement); }
  } else if (const Symbol* inner = std::get_if<Symbol>(&geometry)) {
    const Transform within = placement.toPaper * symbolPlacement(*inner, inner->scale);
    symbolParts(style, inner->name, {within, placement.paperScale * inner->scale, placement.turned});
  } else {
    std::visit(Visitor{*this, style, placement}, transformed(geometry, placement.toPaper));
  }
}

}  // namespace brevan
