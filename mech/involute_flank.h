#pragma once

#include <optional>
#include <vector>

#include "frame/drafting/point.h"
#include "mech/gear_tooth.h"

namespace ardenix::mech {

// An arc of a flank.
struct FlankArc {
  Point start;
  Point centre;
  Point end;
  bool clockwise = false;
};

// One flank of a tooth space as a rack of the standard profile cuts it, from the root circle to the tip circle, in arcs
// that leave the true curve by no more than a thousandth of the module: the fillet that the rack's rounded tip cuts,
// then the involute. With few teeth the fillet undercuts the involute. Measured from the gear's centre, for a space
// whose middle lies on the x axis, the flank above it. Nothing for profiles that a rack cannot have: a pressure angle
// of 0, or one at which its teeth are pointed before they reach the root.
std::optional<std::vector<FlankArc>> involuteFlank(const GearRecord& gear);

}  // namespace ardenix::mech
