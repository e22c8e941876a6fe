#include "host/geometry/fillet.h"

#include <algorithm>
#include <array>
#include <limits>

namespace brevan {

namespace {

constexpr double kRounding = 1e-9;

double tolerance(const Curve& first, const Curve& second) {
  return kRounding * (1.0 + lengthOf(first) + lengthOf(second));
}

// The curve moved aside by a signed distance; an arc's radius may not become negative.
std::optional<Curve> movedAside(const Curve& curve, double aside) {
  if (const auto* segment = std::get_if<Segment>(&curve)) {
    const Point along = directionAt(curve, 0.0);
    const Point shift = Point{-along.y, along.x} * aside;
    return Segment{segment->a + shift, segment->b + shift};
  }
  ArcShape arc = std::get<ArcShape>(curve);
  const double radius = arcRadius(arc) + aside;
  if (radius <= 0.0 || arcRadius(arc) == 0.0) { return std::nullopt; }
  arc.start = arc.centre + (arc.start - arc.centre) * (radius / arcRadius(arc));
  arc.end = arc.start;
  return arc;
}

// Where the circle about the centre touches the endless curve.
Point touchingPoint(const Curve& curve, Point centre) {
  if (const auto* segment = std::get_if<Segment>(&curve)) { return footOnLine(*segment, centre).value_or(segment->a); }
  const auto& arc = std::get<ArcShape>(curve);
  const Point away = centre - arc.centre;
  const double size = length(away);
  return size > 0.0 ? arc.centre + away * (arcRadius(arc) / size) : arc.start;
}

// The named point on its own curve; where it lies at the corner itself, what the curve has most of counts.
double namedParameter(const FilletSide& side, double corner) {
  const double named = std::clamp(parameterOf(side.curve, nearestOn(side.curve, side.named)), 0.0, 1.0);
  constexpr double kAtCorner = 1e-6;
  if (std::abs(named - corner) > kAtCorner) { return named; }
  return corner < 0.5 ? 1.0 : 0.0;
}

struct Kept {
  bool upwards = true;  // from the corner to the curve's end
  double corner = 0.0;
};

Kept keptOf(const FilletSide& side, Point corner) {
  const double at = parameterOf(side.curve, corner);
  return {namedParameter(side, at) > at, at};
}

// A touching point must lie on the kept side, between the corner and the far end.
bool fits(const Curve& curve, const Kept& kept, Point touch) {
  if (isClosed(curve)) { return true; }
  const double at = parameterOf(curve, touch);
  return kept.upwards ? at >= kept.corner - kRounding && at < 1.0 : at <= kept.corner + kRounding && at > 0.0;
}

Curve trimmed(const Curve& curve, const Kept& kept, Point to) {
  if (isClosed(curve)) { return curve; }
  if (const auto* segment = std::get_if<Segment>(&curve)) {
    return kept.upwards ? Segment{to, segment->b} : Segment{segment->a, to};
  }
  ArcShape arc = std::get<ArcShape>(curve);
  const Point end = endOf(curve);
  arc.start = kept.upwards ? to : arc.start;
  arc.end = kept.upwards ? end : to;
  return arc;
}

ArcShape shortArc(Point from, Point centre, Point to) {
  return {from, centre, to, cross(from - centre, to - centre) < 0.0};
}

// The direction in which what is kept leaves the touching point.
Point keptDirection(const Curve& curve, const Kept& kept, Point touch) {
  return directionAt(curve, parameterOf(curve, touch)) * (kept.upwards ? 1.0 : -1.0);
}

// Side, arc and side run on without a cusp.
bool runsSmooth(const FilletSide& first, const Kept& kept1, const FilletSide& second, const Kept& kept2,
                const ArcShape& arc) {
  const bool leaves =
      isClosed(first.curve) || dot(keptDirection(first.curve, kept1, arc.start), directionAt(arc, 0.0)) < 0.0;
  const bool arrives =
      isClosed(second.curve) || dot(keptDirection(second.curve, kept2, arc.end), directionAt(arc, 1.0)) > 0.0;
  return leaves && arrives;
}

std::optional<Point> cornerNear(const FilletSide& first, const FilletSide& second) {
  std::optional<Point> best;
  double bestDistance = std::numeric_limits<double>::infinity();
  for (const Point at : crossingsOfEndless(first.curve, second.curve, tolerance(first.curve, second.curve))) {
    const double away = distance(at, first.named) + distance(at, second.named);
    if (away < bestDistance) {
      best = at;
      bestDistance = away;
    }
  }
  return best;
}

}  // namespace

std::optional<Fillet> filletOf(const FilletSide& first, const FilletSide& second, double radius) {
  const auto corner = cornerNear(first, second);
  if (!corner) { return std::nullopt; }
  const Kept kept1 = keptOf(first, *corner);
  const Kept kept2 = keptOf(second, *corner);
  if (radius == 0.0) {
    return Fillet{trimmed(first.curve, kept1, *corner), trimmed(second.curve, kept2, *corner), std::nullopt};
  }
  std::optional<Fillet> best;
  double bestDistance = std::numeric_limits<double>::infinity();
  for (const auto& [side1, side2] :
       {std::array{radius, radius}, {radius, -radius}, {-radius, radius}, {-radius, -radius}}) {
    const auto aside1 = movedAside(first.curve, side1);
    const auto aside2 = movedAside(second.curve, side2);
    if (!aside1 || !aside2) { continue; }
    for (const Point centre : crossingsOfEndless(*aside1, *aside2, tolerance(*aside1, *aside2))) {
      const Point touch1 = touchingPoint(first.curve, centre);
      const Point touch2 = touchingPoint(second.curve, centre);
      if (!fits(first.curve, kept1, touch1) || !fits(second.curve, kept2, touch2)) { continue; }
      const double away = distance(touch1, *corner) + distance(touch2, *corner);
      if (away >= bestDistance || touch1 == touch2) { continue; }
      const ArcShape arc = shortArc(touch1, centre, touch2);
      if (!runsSmooth(first, kept1, second, kept2, arc)) { continue; }
      bestDistance = away;
      best = Fillet{trimmed(first.curve, kept1, touch1), trimmed(second.curve, kept2, touch2), arc};
    }
  }
  return best;
}

std::optional<ArcShape> arcOfRadius(Point from, Point to, double radius) {
  const Point chord = to - from;
  const double half = length(chord) / 2.0;
  const double size = std::abs(radius);
  if (half == 0.0 || half > size * (1.0 + kRounding)) { return std::nullopt; }
  // The short way round has its centre on the side to which it turns.
  const double away = std::sqrt(std::max(0.0, (size - half) * (size + half)));
  const Point right = Point{chord.y, -chord.x} * (0.5 / half);
  const bool clockwise = radius > 0.0;
  return ArcShape{from, middle(from, to) + right * (clockwise ? away : -away), to, clockwise};
}

std::optional<ArcShape> arcThrough(Point from, Point through, Point to) {
  const Point a = through - from;
  const Point b = to - from;
  const double area = cross(a, b);
  constexpr double kStraight = 1e-12;
  if (std::abs(area) <= kStraight * length(a) * length(b) || through == to) { return std::nullopt; }
  const double aa = squaredLength(a);
  const double bb = squaredLength(b);
  const Point centre = from + Point{b.y * aa - a.y * bb, a.x * bb - b.x * aa} * (0.5 / area);
  return ArcShape{from, centre, to, area < 0.0};
}

}  // namespace brevan
