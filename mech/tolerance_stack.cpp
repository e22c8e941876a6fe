#include "mech/tolerance_stack.h"

#include <cmath>
#include <vector>

#include "mech/annotation_style.h"

namespace ardenix::mech {

namespace {

// Selects the tolerance frame that has a line near the point.
bool selectFrame(CCadWindow& view, Point near) {
  if (view.gsNearestPrim(kLinePrimitive, near.x, near.y) != kLinePrimitive || view.gsSelectGroup() == 0) {
    return false;
  }
  std::string_view parent;
  std::string_view name;
  view.gsGetObject(parent, name);
  return parent == kToleranceAnnotation.parent && !name.starts_with("TSD");
}

// The lower ends of the upright sides of its compartments; a leader has none of that height.
std::vector<Point> feetOfSides(CCadWindow& view, double height) {
  constexpr double kRounding = 1e-6;
  std::vector<Point> feet;
  const int scan = view.gsGetListHandle(kLinePrimitive, -1, 1, 0.0, 0.0, 0.0, 0.0, 0, 1);
  while (view.gsGetNextPrim(scan) != 0) {
    Point a;
    Point b;
    view.gsGetLine(a.x, a.y, b.x, b.y);
    const bool side = nearlyEqual(a.x, b.x) && std::fabs(std::fabs(b.y - a.y) - height) <= kRounding * height;
    if (side) { feet.push_back(a.y < b.y ? a : b); }
  }
  view.gsFreeListHandle(scan);
  return feet;
}

}  // namespace

std::optional<Point> cornerUnderFrame(CCadWindow& view, Point near, double height) {
  const Point down{0.0, height};
  std::optional<Point> corner;
  if (selectFrame(view, near + down)) {
    for (const Point foot : feetOfSides(view, height)) {
      if (!corner) { corner = foot; }
      *corner = {std::min(corner->x, foot.x), std::min(corner->y, foot.y)};
    }
  }
  view.gsClearSelection();
  if (!corner || distance(*corner - down, near) > height) { return std::nullopt; }
  return *corner - down;
}

}  // namespace ardenix::mech
