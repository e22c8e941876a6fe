#include "frame/drafting/pen.h"

namespace ardenix {

void DraftingPen::begin(PrimitiveType type, const LineStyle& style) const {
  const int layer = layer_ ? *layer_ : view_.gsGetCurrentLayer();
  view_.gsSetPrimHeader(type, 0, 0, layer, style.pen, style.linetype, style.width, 0, 0);
}

void DraftingPen::line(Point from, Point to) const {
  if (from.x == to.x && from.y == to.y) { return; }
  begin(kLinePrimitive, style_);
  view_.gsSetLine(from.x, from.y, to.x, to.y);
  view_.gsAddPrim();
}

void DraftingPen::path(std::span<const Point> points) const {
  for (size_t i = 1; i < points.size(); ++i) { line(points[i - 1], points[i]); }
}

void DraftingPen::arc(Point start, Point centre, Point end, ArcSense sense) const {
  begin(kArcPrimitive, style_);
  view_.gsSetArc(start.x, start.y, centre.x, centre.y, end.x, end.y, static_cast<int>(sense));
  view_.gsAddPrim();
}

void DraftingPen::circle(Point centre, double radius, CircleStart from) const {
  const Point start{centre.x + (from == CircleStart::kLeft ? -radius : radius), centre.y};
  arc(start, centre, start, ArcSense::kClockwise);
}

void DraftingPen::text(Point at, std::string_view text, const TextStyle& style) const {
  if (text.empty()) { return; }
  begin(kTextPrimitive, {.pen = style.pen, .linetype = 1, .width = 0.0});
  view_.gsSetFont(style.font, style.pen, style.height, style.angle, static_cast<int>(style.style), style.justification,
                  style.width, style.eighth, style.ninth);
  view_.gsSetText(at.x, at.y, text);
  view_.gsAddPrim();
}

void DraftingPen::arrow(Point tail, Point head, const ArrowHead& shape) const {
  begin(kArrowPrimitive, style_);
  view_.gsSetArrow(tail.x, tail.y, head.x, head.y, shape.length, shape.width, shape.style1, shape.style2, shape.style3);
  view_.gsAddPrim();
}

}  // namespace ardenix
