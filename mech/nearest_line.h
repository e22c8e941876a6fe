#pragma once

#include <optional>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::mech {

// A line of the drawing, and the foot of the perpendicular from a point on it.
struct LineFoot {
  Point a;
  Point b;
  Point foot;
};

// The foot on the line nearest to the point; nothing where none is near. A line without a length has its foot in the
// origin, where the host's search for crossings answers when it finds none.
std::optional<LineFoot> footOnNearestLine(CCadWindow& view, Point point);

}  // namespace ardenix::mech
