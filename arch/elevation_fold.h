#pragma once

#include "arch/plan_pick.h"

namespace ardenix::arch {

// Where an elevation is folded out of the plan.
struct ElevationFold {
  PlanLine face;
  Point foot;              // the point of the face that was picked
  double direction = 0.0;  // away from the building, radians clockwise from the north
  double distance = 0.0;   // from the face to the eaves line

  [[nodiscard]] Point out(Point onFace, double by) const;
  // What lies to the right in the elevation; a unit vector.
  [[nodiscard]] Point right() const { return quarterTurned(out({}, 1.0)); }
  [[nodiscard]] bool isSquareToAxes() const;
  // By which its symbols and texts are turned, in degrees.
  [[nodiscard]] double symbolRotation() const;
};

}  // namespace ardenix::arch
