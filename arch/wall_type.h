#pragma once

#include <array>
#include <string>
#include <string_view>

#include "arch/layer_style.h"

namespace ardenix::arch {

// The lines of a wall, from outside to inside.
enum WallRow { kExtFoundation, kExtWall, kCavity1, kCavity2, kIntWall, kIntFoundation, kWallRows };

inline constexpr std::array<std::string_view, kWallRows> kWallRowNames = {"Ext Fndtn", "Ext Wall", "Cavity 1",
                                                                          "Cavity 2",  "Int Wall", "Int Fndtn"};

// What lies between the lines, from outside to inside; each width in drawing units. A foundation's is how
// far it stands out from its face.
enum WallWidth { kExtFoundationWidth, kExtWallWidth, kCavityWidth, kIntWallWidth, kIntFoundationWidth, kWallWidths };

// A wall of the library. An internal wall has one leaf: the internal wall width is its thickness, and its
// cavity and external leaf are not drawn.
struct WallType {
  std::string name;
  std::string layer;  // on which finished walls lie
  bool internal = true;
  double startAngle = 90.0;  // degrees from the direction of travel; 90 is square
  double endAngle = 90.0;
  bool closesEnds = true;
  bool filletsCorners = false;
  std::array<LayerStyle, kWallRows> rows;
  std::array<double, kWallWidths> widths = {};
};

// A missing field has the value above.
WallType readWallType(std::string_view record);
std::string wallRecord(const WallType& wall);

}  // namespace ardenix::arch
