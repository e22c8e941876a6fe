#include "host/geometry/curve.h"

#include <algorithm>

namespace brevan {

namespace {

Point unit(Point direction) {
  const double size = length(direction);
  return size > 0.0 ? direction * (1.0 / size) : Point{1.0, 0.0};
}

// The fraction of an arc's sweep at which a point's direction lies, nearest to its middle.
double arcParameter(const ArcShape& arc, Point p) {
  if (p == arc.start) { return 0.0; }
  if (p == arc.end) { return 1.0; }
  const double sweep = arcSweep(arc);
  const double half = arcStartAngle(arc) + sweep / 2.0;
  const double fromMiddle = std::remainder(angleOf(p - arc.centre) - half, 2.0 * kPi);
  return 0.5 + fromMiddle / sweep;
}

double segmentParameter(const Segment& segment, Point p) {
  if (p == segment.a) { return 0.0; }
  if (p == segment.b) { return 1.0; }
  const Point along = segment.b - segment.a;
  const double size = squaredLength(along);
  return size > 0.0 ? dot(p - segment.a, along) / size : 0.0;
}

bool onCurve(const Curve& curve, Point p, double tolerance) {
  return squaredLength(nearestOn(curve, p) - p) <= tolerance * tolerance;
}

double clampedParameter(const Curve& curve, Point p) { return std::clamp(parameterOf(curve, p), 0.0, 1.0); }

// Two directions that differ by less than rounding; touching curves meet there only at their ends.
bool parallel(const Segment& first, const Segment& second) {
  const Point along = first.b - first.a;
  const Point across = second.b - second.a;
  constexpr double kParallel = 1e-12;
  return std::abs(cross(along, across)) <= kParallel * length(along) * length(across);
}

void addEndsOnOther(const Curve& curve, const Curve& other, bool swapped, double tolerance,
                    std::vector<Crossing>& found) {
  if (isClosed(curve)) { return; }
  for (const double t : {0.0, 1.0}) {
    const Point end = t == 0.0 ? startOf(curve) : endOf(curve);
    if (!onCurve(other, end, tolerance)) { continue; }
    const double there = clampedParameter(other, end);
    found.push_back(swapped ? Crossing{there, t, end} : Crossing{t, there, end});
  }
}

}  // namespace

Point startOf(const Curve& curve) {
  const auto* segment = std::get_if<Segment>(&curve);
  return segment != nullptr ? segment->a : std::get<ArcShape>(curve).start;
}

Point endOf(const Curve& curve) {
  const auto* segment = std::get_if<Segment>(&curve);
  if (segment != nullptr) { return segment->b; }
  const auto& arc = std::get<ArcShape>(curve);
  return isFullCircle(arc) ? arc.start : arcPointAt(arc, angleOf(arc.end - arc.centre));
}

bool isClosed(const Curve& curve) {
  const auto* arc = std::get_if<ArcShape>(&curve);
  return arc != nullptr && isFullCircle(*arc);
}

double lengthOf(const Curve& curve) {
  const auto* segment = std::get_if<Segment>(&curve);
  if (segment != nullptr) { return distance(segment->a, segment->b); }
  const auto& arc = std::get<ArcShape>(curve);
  return arcRadius(arc) * std::abs(arcSweep(arc));
}

Box boundsOf(const Curve& curve) {
  const auto* segment = std::get_if<Segment>(&curve);
  if (segment == nullptr) { return arcBounds(std::get<ArcShape>(curve)); }
  Box box;
  box.add(segment->a);
  box.add(segment->b);
  return box;
}

Point pointAt(const Curve& curve, double t) {
  if (t == 0.0) { return startOf(curve); }
  if (t == 1.0) { return endOf(curve); }
  const auto* segment = std::get_if<Segment>(&curve);
  if (segment != nullptr) { return segment->a + (segment->b - segment->a) * t; }
  const auto& arc = std::get<ArcShape>(curve);
  return arcPointAt(arc, arcStartAngle(arc) + arcSweep(arc) * t);
}

Point directionAt(const Curve& curve, double t) {
  const auto* segment = std::get_if<Segment>(&curve);
  if (segment != nullptr) { return unit(segment->b - segment->a); }
  const auto& arc = std::get<ArcShape>(curve);
  const Point outwards = unit(pointAt(curve, t) - arc.centre);
  return arc.clockwise ? Point{outwards.y, -outwards.x} : Point{-outwards.y, outwards.x};
}

double curvature(const Curve& curve) {
  const auto* arc = std::get_if<ArcShape>(&curve);
  if (arc == nullptr || arcRadius(*arc) == 0.0) { return 0.0; }
  return (arc->clockwise ? -1.0 : 1.0) / arcRadius(*arc);
}

Point nearestOn(const Curve& curve, Point p) {
  const auto* segment = std::get_if<Segment>(&curve);
  return segment != nullptr ? nearestOnSegment(*segment, p) : nearestOnArc(std::get<ArcShape>(curve), p);
}

double parameterOf(const Curve& curve, Point p) {
  const auto* segment = std::get_if<Segment>(&curve);
  return segment != nullptr ? segmentParameter(*segment, p) : arcParameter(std::get<ArcShape>(curve), p);
}

Curve pieceOf(const Curve& curve, double from, double to) {
  if (from == 0.0 && to == 1.0) { return curve; }
  if (std::holds_alternative<Segment>(curve)) { return Segment{pointAt(curve, from), pointAt(curve, to)}; }
  ArcShape piece = std::get<ArcShape>(curve);
  piece.start = pointAt(curve, from);
  piece.end = pointAt(curve, to);
  return piece;
}

Curve reversed(const Curve& curve) {
  const auto* segment = std::get_if<Segment>(&curve);
  if (segment != nullptr) { return Segment{segment->b, segment->a}; }
  const auto& arc = std::get<ArcShape>(curve);
  return ArcShape{endOf(curve), arc.centre, arc.start, !arc.clockwise};
}

Curve bulgedSide(Point from, Point to, double bulge) {
  const Point chord = to - from;
  if (bulge == 0.0 || squaredLength(chord) == 0.0) { return Segment{from, to}; }
  // The centre lies off the chord's middle by (1 - bulge^2) / (4 bulge) of it, to the left.
  const double aside = (1.0 - bulge * bulge) / (4.0 * bulge);
  const Point centre = middle(from, to) + Point{-chord.y, chord.x} * aside;
  constexpr double kFlat = 1e9;  // radii in chords, beyond which the arc is the chord
  if (!isFinite(centre) || std::abs(aside) > kFlat) { return Segment{from, to}; }
  return ArcShape{from, centre, to, bulge < 0.0};
}

double bulgeOf(const Curve& curve) {
  const auto* arc = std::get_if<ArcShape>(&curve);
  return arc == nullptr ? 0.0 : std::tan(arcSweep(*arc) / 4.0);
}

double sweptArea(const Curve& curve, Point origin) {
  const double chord = cross(startOf(curve) - origin, endOf(curve) - origin);
  const auto* arc = std::get_if<ArcShape>(&curve);
  if (arc == nullptr) { return chord; }
  const double sweep = arcSweep(*arc);
  const double radius = arcRadius(*arc);
  return chord + radius * radius * (sweep - (isClosed(curve) ? 0.0 : std::sin(sweep)));
}

std::vector<Point> lineWithCircle(const Segment& line, Point centre, double radius, double tolerance) {
  const auto foot = footOnLine(line, centre);
  if (!foot) { return {}; }
  const double away = distance(*foot, centre);
  if (away > radius + tolerance) { return {}; }
  // Touching counts once: within the tolerance the two crossings are one.
  const double halfChord = std::sqrt(std::max(0.0, (radius - away) * (radius + away)));
  if (halfChord <= tolerance) { return {*foot}; }
  const Point along = unit(line.b - line.a) * halfChord;
  return {*foot - along, *foot + along};
}

std::vector<Point> circleWithCircle(Point centre1, double radius1, Point centre2, double radius2, double tolerance) {
  const Point between = centre2 - centre1;
  const double apart = length(between);
  if (apart <= tolerance) { return {}; }  // one centre: nowhere or everywhere
  if (apart > radius1 + radius2 + tolerance || apart < std::abs(radius1 - radius2) - tolerance) { return {}; }
  const double along = (apart + (radius1 - radius2) * (radius1 + radius2) / apart) / 2.0;
  const Point direction = between * (1.0 / apart);
  const Point foot = centre1 + direction * along;
  const double half = std::sqrt(std::max(0.0, (radius1 - along) * (radius1 + along)));
  if (half <= tolerance) { return {foot}; }
  const Point across = Point{-direction.y, direction.x} * half;
  return {foot + across, foot - across};
}

std::vector<Point> crossingsOfEndless(const Curve& first, const Curve& second, double tolerance) {
  const auto* line1 = std::get_if<Segment>(&first);
  const auto* line2 = std::get_if<Segment>(&second);
  if (line1 != nullptr && line2 != nullptr) {
    const auto at = crossingOfLines(*line1, *line2);
    return at ? std::vector<Point>{*at} : std::vector<Point>{};
  }
  if (line1 != nullptr) {
    const auto& arc = std::get<ArcShape>(second);
    return lineWithCircle(*line1, arc.centre, arcRadius(arc), tolerance);
  }
  const auto& arc1 = std::get<ArcShape>(first);
  if (line2 != nullptr) { return lineWithCircle(*line2, arc1.centre, arcRadius(arc1), tolerance); }
  const auto& arc2 = std::get<ArcShape>(second);
  return circleWithCircle(arc1.centre, arcRadius(arc1), arc2.centre, arcRadius(arc2), tolerance);
}

std::vector<Crossing> crossings(const Curve& first, const Curve& second, double tolerance) {
  std::vector<Crossing> found;
  found.reserve(8);
  addEndsOnOther(first, second, false, tolerance, found);
  addEndsOnOther(second, first, true, tolerance, found);
  const auto* line1 = std::get_if<Segment>(&first);
  const auto* line2 = std::get_if<Segment>(&second);
  if (line1 != nullptr && line2 != nullptr && parallel(*line1, *line2)) { return found; }
  for (const Point at : crossingsOfEndless(first, second, tolerance)) {
    if (!onCurve(first, at, tolerance) || !onCurve(second, at, tolerance)) { continue; }
    found.push_back({clampedParameter(first, at), clampedParameter(second, at), at});
  }
  return found;
}

std::vector<Point> flattened(const Curve& curve, double tolerance) {
  std::vector<Point> points = {startOf(curve)};
  if (const auto* arc = std::get_if<ArcShape>(&curve)) {
    const double radius = std::max(arcRadius(*arc), tolerance);
    const double step = 2.0 * std::acos(std::max(0.0, 1.0 - tolerance / radius));
    constexpr double kMost = 10000.0;
    const double pieces = std::clamp(std::ceil(std::abs(arcSweep(*arc)) / step), 1.0, kMost);
    for (double piece = 1.0; piece < pieces; ++piece) { points.push_back(pointAt(curve, piece / pieces)); }
  }
  points.push_back(endOf(curve));
  return points;
}

}  // namespace brevan
