#include "arch/elevation_view.h"

#include <algorithm>

#include "arch/plan_geometry.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

double ElevationView::symbolRotation() const { return normaliseDegrees(180 - angle); }

size_t viewTowards(double direction) {
  const int angle = normaliseDegrees(snapQuadrant(coreRadDms(direction)));
  return static_cast<size_t>(std::ranges::find(kElevationViews, angle, &ElevationView::angle) -
                             kElevationViews.begin());
}

double directionOf(Point from, Point to) {
  double distance = 0.0;
  double direction = 0.0;
  coreSurvJoin(from.y, from.x, to.y, to.x, distance, direction);
  return direction;
}

Point moved(Point from, double direction, double distance) {
  Point to;
  coreSurvPolar(from.y, from.x, direction, distance, to.y, to.x);
  return to;
}

}  // namespace ardenix::arch
