#pragma once

#include <optional>

#include "host/geometry/curve.h"

namespace brevan {

// One side of a corner and a point that names it: what lies on the point's side of the corner is kept.
struct FilletSide {
  Curve curve;
  Point named;
};

// A rounded corner: both sides as they are trimmed (or carried on) to the arc, which touches both and turns
// less than half a turn. With radius 0 there is no arc and the sides end at the corner.
struct Fillet {
  Curve first;
  Curve second;
  std::optional<ArcShape> arc;
};

// Nothing where the sides have no corner, or no arc of this radius fits between what is kept of them. A
// full circle stays whole.
std::optional<Fillet> filletOf(const FilletSide& first, const FilletSide& second, double radius);

// The short arc from one point to another: the radius counts in size, above 0 clockwise, below 0
// counter-clockwise. Nothing where the points are the same or further apart than the diameter.
std::optional<ArcShape> arcOfRadius(Point from, Point to, double radius);

// From the first point through the second to the third; nothing where they lie on one line.
std::optional<ArcShape> arcThrough(Point from, Point through, Point to);

}  // namespace brevan
