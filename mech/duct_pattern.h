#pragma once

#include <array>
#include <optional>

#include "frame/drafting/point.h"

namespace ardenix::mech {

// A duct from a rectangle to a circle above it. Drawing units.
struct Duct {
  double length = 100.0;
  double width = 75.0;
  double radius = 10.0;  // of the round end
  double offset = 20.0;  // of its centre from the middle of the length, towards the left
  double height = 50.0;
};

// Half of a duct's surface, spread on a base line: where the round end's points, 30 degrees apart, come to lie from the
// middle of the base outwards, and last the middle of the rectangle's short edge. Measured from the corner at the end
// of the base, x towards the middle.
using DuctHalf = std::array<Point, 5>;

struct DuctPattern {
  DuctHalf left;
  DuctHalf right;
};

// Nothing for a duct that has no length, width or round end, or whose round end reaches over the rectangle's edge so
// far that its parts cannot be joined.
std::optional<DuctPattern> ductPattern(const Duct& duct);

}  // namespace ardenix::mech
