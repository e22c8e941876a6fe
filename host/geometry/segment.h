#pragma once

#include <optional>

#include "host/geometry/point.h"

namespace brevan {

struct Segment {
  Point a;
  Point b;
  friend bool operator==(const Segment&, const Segment&) = default;
};

Point nearestOnSegment(const Segment& segment, Point p);
// The foot of the perpendicular on the endless line; nothing for a line without length.
std::optional<Point> footOnLine(const Segment& line, Point p);
// The crossing of two endless lines; nothing where they are parallel or have no length.
std::optional<Point> crossingOfLines(const Segment& first, const Segment& second);
// The crossing of two segments, ends included.
std::optional<Point> crossingOfSegments(const Segment& first, const Segment& second);

}  // namespace brevan
