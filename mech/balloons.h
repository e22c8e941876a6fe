#pragma once

#include <string>
#include <vector>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::mech {

// A row of a parts list that gets its number in a circle beside its part.
struct BalloonRow {
  std::string part;
  std::vector<Point> outline;  // points of its part; where none are known the user is asked for one
};

// Asks for a balloon's place row after row and draws it, with a leader to the nearest point of its part. A row whose
// prompt the user ends by the space bar is left out, Escape leaves out the rest.
void placeBalloons(CCadWindow& view, const std::vector<BalloonRow>& rows);

}  // namespace ardenix::mech
