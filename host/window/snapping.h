#pragma once

#include <optional>
#include <set>

#include "host/drawing/drawing.h"

namespace brevan {

// An origin is where a text or symbol was placed, an end of an arrow or a measured point of a dimension.
enum class SnapKind { kCentre, kEnd, kOrigin, kIntersection, kMiddle, kPerpendicular, kNearest };

struct SnapPoint {
  Point at;
  SnapKind kind = SnapKind::kNearest;
};

// The point of what is visible to which a pick near it jumps: of the kinds wanted the nearest within reach, the
// kind that is first above where several are equally near, a point of the outline only where there is nothing better.
// A perpendicular needs the point it starts from.
std::optional<SnapPoint> snapAt(const Drawing& drawing, Point p, double reach, const std::set<SnapKind>& kinds,
                                std::optional<Point> from);

}  // namespace brevan
