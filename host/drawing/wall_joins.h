#pragma once

#include <functional>
#include <vector>

#include "host/drawing/wall_run.h"

namespace brevan {

// Joins walls with the others that they meet: the mouth of a wall is open to the one that it runs into, crossings are
// open, and an end on the face of another wall is not drawn twice. Lines on layers that are hidden or locked stay.
void joinWalls(Drawing& drawing, const std::vector<GroupId>& walls, const std::function<bool(GroupId)>& others);

}  // namespace brevan
