#include "survey/figure.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace ardenix::survey {

namespace {

constexpr double kTolerance = 1e-12;

}  // namespace

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

Extents extentsOf(const Figure& figure) {
  Extents extents{figure.front().from, figure.front().from};
  for (const Side& side : figure) { extents.add(side.from); }
  return extents;
}

// Worked out from the first corner: of coordinates of seven digits the products would keep no square millimetres.
double areaOf(const Figure& figure) {
  double twice = 0.0;
  const Point first = figure.empty() ? Point{} : figure.front().from;
  for (const Side& side : figure) {
    twice += (side.from.x - first.x) * (side.to.y - first.y) - (side.from.y - first.y) * (side.to.x - first.x);
  }
  return std::fabs(twice) / 2.0;
}

std::string nameOf(const Figure& figure) {
  std::string name = " ";
  for (const Side& side : figure) { name += side.fromLabel + " "; }
  return name;
}

}  // namespace ardenix::survey
