#pragma once

#include <string>
#include <vector>

#include "arch/wall_settings.h"
#include "arch/wall_type.h"

namespace ardenix::arch {

// A line of a wall beside the line that is followed.
struct WallLine {
  WallRow row;
  double offset;  // drawing units, above 0 to the right of travel
};

// The row whose face lies on the line that is followed.
WallRow referenceRow(const WallSettings& settings);

// The visible lines of a wall: the foundation behind the reference line, then from the reference line
// outwards (or inwards) through the wall. A row that is hidden takes no room.
std::vector<WallLine> wallLines(const WallType& wall, const WallSettings& settings);

// What the host's parallel-line command is told of a wall.
std::string parallelDefinition(const WallType& wall, const WallSettings& settings);

}  // namespace ardenix::arch
