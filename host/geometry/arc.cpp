#include "host/geometry/arc.h"

#include <array>

namespace brevan {

double arcRadius(const ArcShape& arc) { return distance(arc.centre, arc.start); }

double arcStartAngle(const ArcShape& arc) { return angleOf(arc.start - arc.centre); }

bool isFullCircle(const ArcShape& arc) { return arc.start == arc.end; }

double arcSweep(const ArcShape& arc) {
  const double fullTurn = arc.clockwise ? -2.0 * kPi : 2.0 * kPi;
  if (isFullCircle(arc)) { return fullTurn; }
  const double from = angleOf(arc.start - arc.centre);
  const double to = angleOf(arc.end - arc.centre);
  const double turn = arc.clockwise ? -positiveAngle(from - to) : positiveAngle(to - from);
  return turn == 0.0 ? fullTurn : turn;
}

Point arcPointAt(const ArcShape& arc, double angle) { return arc.centre + polar(arcRadius(arc), angle); }

bool arcCovers(const ArcShape& arc, double angle) {
  if (isFullCircle(arc)) { return true; }
  const double sweep = arcSweep(arc);
  const double fromStart = arc.clockwise ? arcStartAngle(arc) - angle : angle - arcStartAngle(arc);
  const double turned = positiveAngle(fromStart);
  constexpr double kRounding = 1e-12;
  return turned <= std::abs(sweep) + kRounding || turned >= 2.0 * kPi - kRounding;
}

Box arcBounds(const ArcShape& arc) {
  Box box;
  const double radius = arcRadius(arc);
  if (isFullCircle(arc)) {
    box.add(arc.centre - Point{radius, radius});
    box.add(arc.centre + Point{radius, radius});
    return box;
  }
  box.add(arc.start);
  box.add(arcPointAt(arc, angleOf(arc.end - arc.centre)));
  constexpr std::array<Point, 4> kQuadrants = {{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
  for (size_t quarter = 0; quarter < kQuadrants.size(); ++quarter) {
    if (arcCovers(arc, static_cast<double>(quarter) * kPi / 2.0)) {
      box.add(arc.centre + kQuadrants[quarter] * radius);
    }
  }
  return box;
}

Point nearestOnArc(const ArcShape& arc, Point p) {
  const Point away = p - arc.centre;
  if (squaredLength(away) > 0.0 && arcCovers(arc, angleOf(away))) {
    return arc.centre + away * (arcRadius(arc) / length(away));
  }
  const Point end = arcPointAt(arc, angleOf(arc.end - arc.centre));
  return squaredLength(p - arc.start) <= squaredLength(p - end) ? arc.start : end;
}

}  // namespace brevan
