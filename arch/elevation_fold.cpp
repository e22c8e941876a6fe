#include "arch/elevation_fold.h"

#include <cmath>

#include "arch/elevation_view.h"

namespace ardenix::arch {

namespace {

constexpr double kQuarterTurn = 90.0;
// Degrees off an axis that are no more than rounding.
constexpr double kStraight = 1e-9;

}  // namespace

Point ElevationFold::out(Point onFace, double by) const { return moved(onFace, direction, by); }

bool ElevationFold::isSquareToAxes() const {
  return std::fabs(std::remainder(degrees(direction), kQuarterTurn)) <= kStraight;
}

// Square to the eaves line, also where the house is turned.
double ElevationFold::symbolRotation() const {
  if (isSquareToAxes()) { return kElevationViews[viewTowards(direction)].symbolRotation(); }
  constexpr double kTurn = 4.0 * kQuarterTurn;
  return std::fmod(1.5 * kTurn - degrees(direction), kTurn);
}

}  // namespace ardenix::arch
