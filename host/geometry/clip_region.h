#pragma once

#include <optional>
#include <vector>

#include "host/geometry/box.h"
#include "host/geometry/curve.h"

namespace brevan {

// A window, circle or polygon that cuts what crosses it. Its edge counts within kEdgeWidth, because
// corners come printed with three decimals.
class ClipRegion {
 public:
  static constexpr double kEdgeWidth = 0.001;
  enum class Place { kInside, kEdge, kOutside };

  static ClipRegion window(Point corner, Point opposite);
  static ClipRegion circle(Point centre, double radius);
  // Has three corners or more and closes by itself; where its sides cross each other, even-odd holds.
  static ClipRegion polygon(const std::vector<Point>& corners);

  [[nodiscard]] const std::vector<Curve>& outline() const { return outline_; }
  [[nodiscard]] const Box& bounds() const { return bounds_; }
  [[nodiscard]] Place place(Point p) const;
  // The whole box, within the edge's width.
  [[nodiscard]] bool holds(const Box& box) const;

 private:
  enum class Kind { kWindow, kCircle, kPolygon };
  [[nodiscard]] bool encloses(Point p) const;
  [[nodiscard]] double distanceToEdge(Point p) const;

  Kind kind_ = Kind::kWindow;
  std::vector<Curve> outline_;
  Box bounds_;
  Point centre_;
  double radius_ = 0.0;
};

// What of a curve to keep.
struct KeepRule {
  bool inside = false;
  bool edge = false;
  bool outside = false;
};

// The pieces of the curve that the rule keeps, each as long as can be; nothing where all of it is kept.
std::optional<std::vector<Curve>> cutByRegion(const Curve& curve, const ClipRegion& region, const KeepRule& rule);

}  // namespace brevan
