#pragma once

#include <vector>

#include "host/drawing/wall_run.h"

namespace brevan {

// An opening in a wall is a group of one symbol and the two jambs at its ends: the wall's lines end at these.

enum class WallCut {
  kCut,
  kLocked,  // the wall's layer is
  kNoRoom,  // the faces do not run on at both ends of the opening
};

// Cuts the lines of a wall between two places along its face, and draws the jambs as members of the group given.
// Nothing is changed unless the answer is kCut.
struct WallPlace {
  double from = 0.0;
  double to = 0.0;
};
WallCut cutWall(Drawing& drawing, const WallRun& run, const WallPlace& place, GroupId opening);

// Removes parts; where an opening goes with its symbol, its jambs go and the wall's lines are joined again.
void removeParts(Drawing& drawing, const std::vector<PrimitiveId>& ids);

}  // namespace brevan
