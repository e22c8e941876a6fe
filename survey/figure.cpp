#include "survey/figure.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace ardenix::survey {

namespace {

constexpr double kTolerance = 1e-12;

}  // namespace

double distanceToSegment(Point p, Point a, Point b) {
  const Point way = b - a;
  const double square = dot(way, way);
  const double along = square == 0.0 ? 0.0 : std::clamp(dot(p - a, way) / square, 0.0, 1.0);
  return distance(p, a + way * along);
}

Join joinOf(Point from, Point to) {
  constexpr double kFullCircle = 2.0 * std::numbers::pi;
  const double across = to.x - from.x;
  const double along = to.y - from.y;
  if (std::fabs(across) <= kTolerance && std::fabs(along) <= kTolerance) { return {}; }
  double direction = std::atan2(across, along);
  if (direction < 0.0) { direction += kFullCircle; }
  if (degrees(direction) >= 360.0 - (360.0 * kTolerance + kTolerance)) { direction = 0.0; }
  return {std::hypot(across, along), direction};
}

Side::Side(std::string fromLabel, Point from, std::string toLabel, Point to)
    : fromLabel(std::move(fromLabel)), toLabel(std::move(toLabel)), from(from), to(to), join(joinOf(from, to)) {}

std::vector<Point> Side::points(double step) const {
  if (!arc) { return {from}; }
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::fabs(arc->sweep) / step)));
  std::vector<Point> points;
  points.reserve(static_cast<size_t>(pieces));
  for (int n = 0; n < pieces; ++n) {
    points.push_back(arc->centre + turned(from - arc->centre, arc->sweep * n / pieces));
  }
  return points;
}

namespace {

// The highest, lowest, leftmost and rightmost points of the circle that lie on the arc.
void addArc(Extents& extents, Point from, const SideArc& arc) {
  constexpr double kQuarter = std::numbers::pi / 2.0;
  const double radius = distance(arc.centre, from);
  const double begin = angleOf(from - arc.centre);
  const double low = std::min(begin, begin + arc.sweep);
  const double high = std::max(begin, begin + arc.sweep);
  for (double angle = std::ceil(low / kQuarter) * kQuarter; angle <= high; angle += kQuarter) {
    extents.add(arc.centre + polar(radius, angle));
  }
}

// Twice what lies between an arc and its chord, above 0 to the right of the way along it.
double twiceSegment(const Side& side) {
  if (!side.arc) { return 0.0; }
  const double radius = distance(side.arc->centre, side.from);
  return radius * radius * (side.arc->sweep - std::sin(side.arc->sweep));
}

// Worked out from the first corner: of coordinates of seven digits the products would keep no square millimetres.
double twiceAreaOf(const Figure& figure) {
  double twice = 0.0;
  const Point first = figure.empty() ? Point{} : figure.front().from;
  for (const Side& side : figure) { twice += cross(side.from - first, side.to - first) + twiceSegment(side); }
  return twice;
}

// A straight piece of a boundary and the side that it belongs to.
struct Piece {
  const Side* side;
  Point a;
  Point b;
};

std::vector<Piece> piecesOf(const Figure& figure) {
  constexpr double kStep = std::numbers::pi / 36.0;
  std::vector<Piece> pieces;
  for (const Side& side : figure) {
    if (side.join.distance == 0.0) { continue; }
    std::vector<Point> points = side.points(kStep);
    points.push_back(side.to);
    for (size_t n = 1; n < points.size(); ++n) { pieces.push_back({&side, points[n - 1], points[n]}); }
  }
  return pieces;
}

// Whether two pieces have a point in common: the ends of each lie on either side of the other.
bool meet(const Piece& one, const Piece& other) {
  const auto sides = [](const Piece& line, Point p) { return cross(line.b - line.a, p - line.a); };
  const auto spans = [](double a, double b, double c, double d) {
    return std::max(std::min(a, b), std::min(c, d)) <= std::min(std::max(a, b), std::max(c, d));
  };
  return sides(one, other.a) * sides(one, other.b) <= 0.0 && sides(other, one.a) * sides(other, one.b) <= 0.0 &&
         spans(one.a.x, one.b.x, other.a.x, other.b.x) && spans(one.a.y, one.b.y, other.a.y, other.b.y);
}

}  // namespace

Extents extentsOf(const Figure& figure) {
  Extents extents{figure.front().from, figure.front().from};
  for (const Side& side : figure) {
    extents.add(side.from);
    if (side.arc) { addArc(extents, side.from, *side.arc); }
  }
  return extents;
}

bool runsCounterClockwise(const Figure& figure) { return twiceAreaOf(figure) > 0.0; }

double areaOf(const Figure& figure) { return std::fabs(twiceAreaOf(figure)) / 2.0; }

double perimeterOf(const Figure& figure) {
  double sum = 0.0;
  for (const Side& side : figure) {
    sum += side.arc ? distance(side.arc->centre, side.from) * std::fabs(side.arc->sweep) : side.join.distance;
  }
  return sum;
}

std::optional<std::pair<const Side*, const Side*>> crossingSides(const Figure& figure) {
  const std::vector<Piece> pieces = piecesOf(figure);
  for (size_t i = 0; i < pieces.size(); ++i) {
    // Neighbours meet at their corner, the last piece and the first as well.
    for (size_t k = i + 2; k < pieces.size() - (i == 0 ? 1 : 0); ++k) {
      if (meet(pieces[i], pieces[k])) { return std::pair(pieces[i].side, pieces[k].side); }
    }
  }
  return std::nullopt;
}

std::string nameOf(const Figure& figure) {
  std::string name = " ";
  for (const Side& side : figure) { name += side.fromLabel + " "; }
  return name;
}

}  // namespace ardenix::survey
