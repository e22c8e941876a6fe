#pragma once

#include <optional>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::mech {

// The lower left corner of a frame that continues another downwards, where the point lies near it, within the height of
// a compartment; nothing elsewhere. The frame that is continued must be on a visible layer.
std::optional<Point> cornerUnderFrame(CCadWindow& view, Point near, double height);

}  // namespace ardenix::mech
