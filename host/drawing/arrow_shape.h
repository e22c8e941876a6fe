#pragma once

#include <array>

#include "host/drawing/primitive.h"

namespace brevan {

// The shaft ends where the head begins, so that a wide line does not blunt the tip; a head longer than the
// arrow leaves no shaft. Nothing at all is drawn of an arrow without length.
struct ArrowShape {
  bool drawn = false;
  bool hasShaft = false;
  Line shaft;
  std::array<Point, 3> head;  // tip first
  int headPen = kPenByLayer;  // 256: as the shaft
};

// paperMillimetre: what a millimetre on paper is in the arrow's own coordinates.
inline ArrowShape arrowShape(const Arrow& arrow, double paperMillimetre) {
  ArrowShape shape;
  const double reach = distance(arrow.p1, arrow.p2);
  if (reach == 0.0) { return shape; }
  const Point along = (arrow.p2 - arrow.p1) * (1.0 / reach);
  const double headLength = arrow.length / 10.0 * paperMillimetre;
  const Point base = arrow.p2 - along * headLength;
  const Point aside = Point{-along.y, along.x} * (arrow.width / 20.0 * paperMillimetre);
  shape.drawn = true;
  shape.hasShaft = reach > headLength;
  shape.shaft = {arrow.p1, base};
  shape.head = {arrow.p2, base + aside, base - aside};
  shape.headPen = arrow.style[2] == 0 ? kPenByLayer : arrow.style[2];
  return shape;
}

}  // namespace brevan
