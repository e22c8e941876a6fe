#pragma once

#include <optional>
#include <set>

#include "host/drawing/drawing.h"

namespace brevan {

enum class SnapKind { kEnd, kMiddle, kCentre, kIntersection, kPerpendicular, kNearest };

struct SnapPoint {
  Point at;
  SnapKind kind = SnapKind::kNearest;
};

// The point of the visible lines and arcs to which a pick near it jumps: of the kinds wanted the nearest within
// reach, a point of the outline only where there is nothing better. A perpendicular needs the point it starts from.
std::optional<SnapPoint> snapAt(const Drawing& drawing, Point p, double reach, const std::set<SnapKind>& kinds,
                                std::optional<Point> from);

}  // namespace brevan
