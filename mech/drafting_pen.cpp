#include "mech/drafting_pen.h"

namespace ardenix {

void DraftingPen::begin(PrimitiveType type) const {
  view_.gsSetPrimHeader(type, 0, 0, view_.gsGetCurrentLayer(), style_.pen, style_.linetype, style_.width, 0, 0);
}

void DraftingPen::line(Point from, Point to) const {
  begin(kLinePrimitive);
  view_.gsSetLine(from.x, from.y, to.x, to.y);
  view_.gsAddPrim();
}

void DraftingPen::path(std::span<const Point> points) const {
  for (size_t i = 1; i < points.size(); ++i) { line(points[i - 1], points[i]); }
}

void DraftingPen::arc(Point start, Point centre, Point end, ArcSense sense) const {
  begin(kArcPrimitive);
  view_.gsSetArc(start.x, start.y, centre.x, centre.y, end.x, end.y, static_cast<int>(sense));
  view_.gsAddPrim();
}

void DraftingPen::circle(Point centre, double radius) const {
  const Point start{centre.x - radius, centre.y};
  arc(start, centre, start, ArcSense::kClockwise);
}

}  // namespace ardenix
