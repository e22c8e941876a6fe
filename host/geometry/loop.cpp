#include "host/geometry/loop.h"

#include <algorithm>

namespace brevan {

namespace {

// Between an arc and its chord.
bool inCap(const ArcShape& arc, Point p) {
  if (distance(p, arc.centre) >= arcRadius(arc)) { return false; }
  if (isFullCircle(arc)) { return true; }
  const double side = cross(arc.end - arc.start, p - arc.start);
  return arc.clockwise ? side > 0.0 : side < 0.0;
}

bool crossesRightOf(Point a, Point b, Point p) {
  return (a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * ((p.y - a.y) / (b.y - a.y));
}

Point centreOfArea(const std::vector<Point>& corners) {
  const Point origin = corners.front();
  double area = 0.0;
  Point moment;
  for (size_t at = 0; at < corners.size(); ++at) {
    const Point a = corners[at] - origin;
    const Point b = corners[(at + 1) % corners.size()] - origin;
    area += cross(a, b);
    moment = moment + (a + b) * cross(a, b);
  }
  return area == 0.0 ? origin : origin + moment * (1.0 / (3.0 * area));
}

Point middleOfLongestChord(const std::vector<Point>& corners, double level) {
  std::vector<double> crossings;
  for (size_t at = 0; at < corners.size(); ++at) {
    const Point a = corners[at];
    const Point b = corners[(at + 1) % corners.size()];
    if ((a.y > level) != (b.y > level)) { crossings.push_back(a.x + (b.x - a.x) * ((level - a.y) / (b.y - a.y))); }
  }
  std::sort(crossings.begin(), crossings.end());
  Point best{corners.front().x, level};
  double longest = -1.0;
  for (size_t at = 0; at + 1 < crossings.size(); at += 2) {
    if (crossings[at + 1] - crossings[at] <= longest) { continue; }
    longest = crossings[at + 1] - crossings[at];
    best.x = (crossings[at] + crossings[at + 1]) / 2.0;
  }
  return best;
}

}  // namespace

double signedArea(const Loop& loop) {
  if (loop.empty()) { return 0.0; }
  const Point origin = startOf(loop.front());  // near the loop, so that survey coordinates lose nothing
  double doubled = 0.0;
  for (const Curve& curve : loop) { doubled += sweptArea(curve, origin); }
  return doubled / 2.0;
}

double perimeterOf(const Loop& loop) {
  double total = 0.0;
  for (const Curve& curve : loop) { total += lengthOf(curve); }
  return total;
}

bool encloses(const Loop& loop, Point p) {
  bool inside = false;
  for (const Curve& curve : loop) {
    if (crossesRightOf(startOf(curve), endOf(curve), p)) { inside = !inside; }
    const auto* arc = std::get_if<ArcShape>(&curve);
    if (arc != nullptr && inCap(*arc, p)) { inside = !inside; }
  }
  return inside;
}

Loop reversed(const Loop& loop) {
  Loop back;
  back.reserve(loop.size());
  for (auto curve = loop.rbegin(); curve != loop.rend(); ++curve) { back.push_back(reversed(*curve)); }
  return back;
}

std::vector<Point> flattened(const Loop& loop, double tolerance) {
  std::vector<Point> corners;
  for (const Curve& curve : loop) {
    const std::vector<Point> chain = flattened(curve, tolerance);
    corners.insert(corners.end(), chain.begin(), chain.end() - 1);
  }
  return corners;
}

Point pointInside(const Loop& loop) {
  constexpr double kFine = 1e-5;
  const std::vector<Point> corners = flattened(loop, perimeterOf(loop) * kFine);
  const Point centre = centreOfArea(corners);
  return encloses(loop, centre) ? centre : middleOfLongestChord(corners, centre.y);
}

}  // namespace brevan
