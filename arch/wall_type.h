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

  // An external wall's, from its outer to its inside face.
  [[nodiscard]] double thickness() const {
    return widths[kExtWallWidth] + widths[kCavityWidth] + widths[kIntWallWidth];
  }
};

// Whether the host can cut a wall's end at this angle: 1 to 179 degrees, or 181 to 359. Nearer to its direction of
// travel the cut would run along the wall.
constexpr bool isEndAngle(double degrees) {
  return (degrees >= 1.0 && degrees <= 179.0) || (degrees >= 181.0 && degrees <= 359.0);
}

// A missing field has the value above.
WallType readWallType(std::string_view record);
std::string wallRecord(const WallType& wall);

}  // namespace ardenix::arch
