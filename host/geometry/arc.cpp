#include "host/geometry/arc.h"

#include <array>

namespace brevan {

double arcRadius(const ArcShape& arc) { return distance(arc.centre, arc.start); }

double arcStartAngle(const ArcShape& arc) { return angleOf(arc.start - arc.centre); }

bool isFullCircle(const ArcShape& arc) { return arc.start == arc.end; }

namespace {

// The angles of an arc that is no full circle, worked out once.
struct Turn {
  explicit Turn(const ArcShape& arc)
      : from(angleOf(arc.start - arc.centre)), to(angleOf(arc.end - arc.centre)), clockwise(arc.clockwise) {}

  [[nodiscard]] double sweep() const {
    const double turn = clockwise ? -positiveAngle(from - to) : positiveAngle(to - from);
    return turn == 0.0 ? fullTurn(clockwise) : turn;
  }
  [[nodiscard]] bool covers(double angle) const {
    const double turned = positiveAngle(clockwise ? from - angle : angle - from);
    constexpr double kRounding = 1e-12;
    return turned <= std::abs(sweep()) + kRounding || turned >= 2.0 * kPi - kRounding;
  }
  static double fullTurn(bool clockwise) { return clockwise ? -2.0 * kPi : 2.0 * kPi; }

  double from;
  double to;
  bool clockwise;
};

}  // namespace

double arcSweep(const ArcShape& arc) { return isFullCircle(arc) ? Turn::fullTurn(arc.clockwise) : Turn(arc).sweep(); }

Point arcPointAt(const ArcShape& arc, double angle) { return arc.centre + polar(arcRadius(arc), angle); }

bool arcCovers(const ArcShape& arc, double angle) { return isFullCircle(arc) || Turn(arc).covers(angle); }

Box arcBounds(const ArcShape& arc) {
  Box box;
  const double radius = arcRadius(arc);
  if (isFullCircle(arc)) {
    box.add(arc.centre - Point{radius, radius});
    box.add(arc.centre + Point{radius, radius});
    return box;
  }
  const Turn turn(arc);
  box.add(arc.start);
  box.add(arc.centre + polar(radius, turn.to));
  constexpr std::array<Point, 4> kQuadrants = {{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
  for (size_t quarter = 0; quarter < kQuadrants.size(); ++quarter) {
    if (turn.covers(static_cast<double>(quarter) * kPi / 2.0)) { box.add(arc.centre + kQuadrants[quarter] * radius); }
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
