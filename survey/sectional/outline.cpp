#include "survey/sectional/outline.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>

#include "survey/figure.h"

namespace ardenix::survey {

Extents extentsOf(const std::vector<Point>& points) {
  Extents extents{points.front(), points.front()};
  for (const Point point : points) { extents.add(point); }
  return extents;
}

// ---- Labels -----------------------------------------------------------------------------------------------------

namespace {

// Where a level line crosses the outline, from left to right.
std::vector<double> crossings(const std::vector<Point>& points, double level) {
  std::vector<double> across;
  for (size_t n = 1; n < points.size(); ++n) {
    const Point a = points[n - 1];
    const Point b = points[n];
    if ((a.y > level) != (b.y > level)) { across.push_back(a.x + (b.x - a.x) * (level - a.y) / (b.y - a.y)); }
  }
  std::ranges::sort(across);
  return across;
}

Point meanOfCorners(const std::vector<Point>& closed) {
  std::vector<Point> corners(closed.begin(), closed.end() - 1);
  std::ranges::sort(corners, {}, [](Point p) { return std::pair(p.x, p.y); });
  corners.erase(std::unique(corners.begin(), corners.end(), [](Point a, Point b) { return nearlyEqual(a, b); }),
                corners.end());
  Point away;  // from the first: large coordinates would cost digits
  for (const Point corner : corners) { away = away + (corner - closed.front()); }
  return closed.front() + away / static_cast<double>(corners.size());
}

}  // namespace

Point placeOfLabel(const std::vector<Point>& closed) {
  const Point mean = meanOfCorners(closed);
  const std::vector<double> across = crossings(closed, mean.y);
  Point widest = mean;
  double width = 0.0;
  for (size_t n = 1; n < across.size(); n += 2) {
    if (across[n - 1] <= mean.x && mean.x <= across[n]) { return mean; }
    if (across[n] - across[n - 1] <= width) { continue; }
    width = across[n] - across[n - 1];
    widest = {(across[n] + across[n - 1]) / 2.0, mean.y};
  }
  return widest;
}

// ---- Faults between outlines ------------------------------------------------------------------------------------

namespace {

using Points = std::vector<Point>;

double distanceToBoundary(Point p, const Points& closed) {
  double nearest = std::numeric_limits<double>::infinity();
  for (size_t n = 1; n < closed.size(); ++n) {
    nearest = std::min(nearest, distanceToSegment(p, closed[n - 1], closed[n]));
  }
  return nearest;
}

bool encloses(const Points& closed, Point p) {
  const std::vector<double> across = crossings(closed, p.y);
  return std::ranges::count_if(across, [p](double x) { return x < p.x; }) % 2 != 0;
}

bool liesWithin(const Points& closed, Point p, double margin) {
  return encloses(closed, p) && distanceToBoundary(p, closed) > margin;
}

// Whether a corner of one, the middle of a side, or the middle of the whole lies within the other.
bool reachesInto(const Points& one, const Points& other, double margin) {
  if (liesWithin(other, placeOfLabel(one), margin)) { return true; }
  for (size_t n = 1; n < one.size(); ++n) {
    if (liesWithin(other, one[n], margin) || liesWithin(other, middle(one[n - 1], one[n]), margin)) { return true; }
  }
  return false;
}

// Whether both ends of each side lie clear of the other side's line, on either side of it.
bool sidesCross(Point a, Point b, Point c, Point d, double margin) {
  if (nearlyEqual(a, b) || nearlyEqual(c, d)) { return false; }
  const auto away = [](Point from, Point to, Point p) { return cross(unit(to - from), p - from); };
  const auto apart = [margin](double one, double other) {
    return std::min(one, other) < -margin && std::max(one, other) > margin;
  };
  return apart(away(a, b, c), away(a, b, d)) && apart(away(c, d, a), away(c, d, b));
}

bool boundariesCross(const Points& one, const Points& other, double margin) {
  for (size_t i = 1; i < one.size(); ++i) {
    for (size_t k = 1; k < other.size(); ++k) {
      if (sidesCross(one[i - 1], one[i], other[k - 1], other[k], margin)) { return true; }
    }
  }
  return false;
}

// The widest by which a corner of one misses the other's boundary; 0 where none does.
double gapAt(const Points& corners, const Points& boundary, double least, double most) {
  double widest = 0.0;
  for (const Point corner : corners) {
    const double away = distanceToBoundary(corner, boundary);
    if (away > least && away < most) { widest = std::max(widest, away); }
  }
  return widest;
}

std::optional<OutlineFault> faultBetween(const SectionOutline& one, const SectionOutline& other, double least,
                                         double most) {
  const Points& a = one.points;
  const Points& b = other.points;
  if (reachesInto(a, b, least) || reachesInto(b, a, least) || boundariesCross(a, b, least)) {
    return OutlineFault{one.section, other.section, true};
  }
  const double gap = std::max(gapAt(a, b, least, most), gapAt(b, a, least, most));
  return gap > 0.0 ? std::optional(OutlineFault{one.section, other.section, false, gap}) : std::nullopt;
}

}  // namespace

std::vector<OutlineFault> faultsBetween(const Outlines& outlines, double millimetresAUnit) {
  constexpr double kLeastMillimetres = 10.0;
  constexpr double kWallMillimetres = 250.0;
  const double least = kLeastMillimetres / millimetresAUnit;
  const double most = kWallMillimetres / millimetresAUnit;
  std::vector<std::pair<Extents, const SectionOutline*>> placed;
  placed.reserve(outlines.size());
  for (const SectionOutline* outline : outlines) {
    placed.emplace_back(extentsOf(outline->points).grownBy(most), outline);
  }
  std::ranges::sort(placed, {}, [](const auto& each) { return each.first.low.x; });
  std::vector<OutlineFault> faults;
  for (size_t i = 0; i < placed.size(); ++i) {
    const auto& [here, outline] = placed[i];
    for (size_t k = i + 1; k < placed.size() && placed[k].first.low.x <= here.high.x; ++k) {
      const Extents& there = placed[k].first;
      if (there.low.y > here.high.y || there.high.y < here.low.y) { continue; }
      if (const auto fault = faultBetween(*outline, *placed[k].second, least, most)) { faults.push_back(*fault); }
    }
  }
  return faults;
}

}  // namespace ardenix::survey
