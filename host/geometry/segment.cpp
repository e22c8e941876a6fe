#include "host/geometry/segment.h"

#include <algorithm>

namespace brevan {

namespace {

struct LineParameters {
  double first = 0.0;
  double second = 0.0;
};

// Where two endless lines cross, as fractions of their segments.
std::optional<LineParameters> crossingParameters(const Segment& first, const Segment& second) {
  const Point along = first.b - first.a;
  const Point across = second.b - second.a;
  const double area = cross(along, across);
  constexpr double kParallel = 1e-14;
  if (std::abs(area) <= kParallel * length(along) * length(across)) { return std::nullopt; }
  const Point between = second.a - first.a;
  return LineParameters{cross(between, across) / area, cross(between, along) / area};
}

}  // namespace

Point nearestOnSegment(const Segment& segment, Point p) {
  const Point along = segment.b - segment.a;
  const double size = squaredLength(along);
  if (size == 0.0) { return segment.a; }
  return segment.a + along * std::clamp(dot(p - segment.a, along) / size, 0.0, 1.0);
}

std::optional<Point> footOnLine(const Segment& line, Point p) {
  const Point along = line.b - line.a;
  const double size = squaredLength(along);
  if (size == 0.0) { return std::nullopt; }
  return line.a + along * (dot(p - line.a, along) / size);
}

std::optional<Point> crossingOfLines(const Segment& first, const Segment& second) {
  const auto at = crossingParameters(first, second);
  if (!at) { return std::nullopt; }
  return first.a + (first.b - first.a) * at->first;
}

std::optional<Point> crossingOfSegments(const Segment& first, const Segment& second) {
  const auto at = crossingParameters(first, second);
  constexpr double kEnds = 1e-12;
  const auto within = [](double t) { return t >= -kEnds && t <= 1.0 + kEnds; };
  if (!at || !within(at->first) || !within(at->second)) { return std::nullopt; }
  return first.a + (first.b - first.a) * at->first;
}

}  // namespace brevan
