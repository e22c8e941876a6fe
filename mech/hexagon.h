#pragma once

#include <array>

#include "frame/point.h"
#include "mech/drafting_pen.h"

namespace ardenix {

// A hexagon head or nut standing with a corner to the left and right, its flats at top and bottom in plan.
// All lengths are drawing units.
struct Hexagon {
  double halfAcrossFlats = 0.0;
  double halfAcrossCorners = 0.0;
  double halfSide = 0.0;
  double height = 0.0;
  double cornerHeight = 0.0;  // up to which the corners reach under the 30 degree chamfer
};

Hexagon hexagon(double acrossFlats, double height);

// The radius of the circle through three points in order; 0 where the last two coincide, very large where
// all lie on a line.
double radiusThrough(Point first, Point second, Point third);

// The plan: six sides, closed, from the left corner over the top.
std::array<Point, 7> hexagonOutline(const Hexagon& hexagon, Point centre);

// The curves that the chamfer leaves on the three visible faces, each from a face's right corner to its left
// one with its highest point at the top of the head; left, middle, right face. `base` is the foot of the axis.
void drawChamferCurves(const DraftingPen& pen, const Hexagon& hexagon, Point base);

}  // namespace ardenix
