#pragma once

#include <array>

#include "frame/drafting/pen.h"
#include "frame/drafting/point.h"

namespace ardenix::mech {

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

// The plan: six sides, closed, from the left corner over the top.
std::array<Point, 7> hexagonOutline(const Hexagon& hexagon, Point centre);

// The side view of a head or nut on a flat base, but for its chamfer curves: the closed outline from the middle
// of the foot, then the two edges between the faces. `base` is the foot of the axis, here and below.
void drawHeadOutline(const DraftingPen& pen, const Hexagon& hexagon, Point base);

// The curves that the chamfer leaves on the three visible faces, each from a face's right corner to its left
// one with its highest point at the top of the head; left, middle, right face.
void drawChamferCurves(const DraftingPen& pen, const Hexagon& hexagon, Point base);
// Those of a chamfer at the foot, with their lowest points at the foot.
void drawBottomChamferCurves(const DraftingPen& pen, const Hexagon& hexagon, Point base);

}  // namespace ardenix::mech
