#pragma once

#include <string>

#include "arch/spec_store.h"
#include "arch/wall_type.h"

namespace ardenix::arch {

// How walls are drawn, whatever their type.
struct WallSettings {
  std::string parentName;  // of the groups
  bool tracks = false;     // follows an existing line or perimeter instead of points
  bool clockwise = true;
  bool outside = true;  // the wall stands outside of the line followed, which is its inside face; else inside
  int current = 0;      // number of the wall type; 0: none
  bool joins = false;   // opens walls to each other where they meet

  // Which way the offsets of the wall's lines count: above 0 is to the right of travel.
  [[nodiscard]] double sign() const { return clockwise == outside ? -1.0 : 1.0; }
};

// Tracking always runs clockwise, whatever the file says.
WallSettings readWallSettings(const ArchSpecStore& store);

// Also notes the type as the last internal or external one, and writes its record under the current number.
void saveWall(ArchSpecStore& store, const WallSettings& settings, const WallType& wall);

}  // namespace ardenix::arch
