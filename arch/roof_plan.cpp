#include "arch/roof_plan.h"

#include <algorithm>

namespace ardenix::arch {

namespace {

// Corners come printed with three decimals.
constexpr double kJoin = 0.01;

bool meet(Point a, Point b) { return distance(a, b) <= kJoin; }

bool isLine(const PlanLine& one, const PlanLine& other) {
  return (meet(one.a, other.a) && meet(one.b, other.b)) || (meet(one.a, other.b) && meet(one.b, other.a));
}

double twiceArea(const std::vector<Point>& corners) {
  double area = 0.0;
  for (size_t at = 0; at < corners.size(); ++at) { area += cross(corners[at], corners[(at + 1) % corners.size()]); }
  return area;
}

}  // namespace

std::vector<PlanLine> linesOnLayer(CCadWindow& view, std::string_view layer) {
  std::vector<PlanLine> lines;
  const int index = view.gsGetLayerIndexFromName(layer);
  if (index < 0) { return lines; }
  const int scan = view.gsGetListHandle(kLinePrimitive, index, 0, 0, 0, 0, 0, 0, 0);
  while (view.gsGetNextPrim(scan) > 0) {
    PlanLine line;
    if (view.gsGetLine(line.a.x, line.a.y, line.b.x, line.b.y) != 0) { lines.push_back(line); }
  }
  view.gsFreeListHandle(scan);
  return lines;
}

std::optional<RoofOutline> outlineThrough(const std::vector<PlanLine>& lines, const PlanLine& side) {
  std::vector<PlanLine> rest;
  for (const PlanLine& line : lines) {
    if (!isLine(line, side)) { rest.push_back(line); }
  }
  RoofOutline outline;
  outline.corners = {side.a, side.b};
  while (!meet(outline.corners.back(), side.a)) {
    const Point end = outline.corners.back();
    const auto leads = [end](const PlanLine& line) { return meet(line.a, end) || meet(line.b, end); };
    const auto next = std::ranges::find_if(rest, leads);
    if (next == rest.end() || std::ranges::count_if(rest, leads) > 1) { return std::nullopt; }
    outline.corners.push_back(meet(next->a, end) ? next->b : next->a);
    rest.erase(next);
  }
  outline.corners.pop_back();
  if (twiceArea(outline.corners) < 0.0) { std::ranges::reverse(outline.corners); }
  outline.sides.assign(outline.corners.size(), RoofSide::kEaves);
  return outline;
}

std::optional<size_t> sideOf(const RoofOutline& outline, const PlanLine& line) {
  for (size_t side = 0; side < outline.count(); ++side) {
    if (isLine(line, {outline.corner(side), outline.corner(side + 1)})) { return side; }
  }
  return std::nullopt;
}

void takeGablesFrom(RoofOutline& outline, const std::vector<PlanLine>& seams) {
  const auto endsWithin = [&](size_t side, Point end) {
    const Point a = outline.corner(side);
    const Point b = outline.corner(side + 1);
    const Point along = unit(b - a);
    const double place = dot(end - a, along);
    return std::fabs(cross(along, end - a)) <= kJoin && place > kJoin && place < distance(a, b) - kJoin;
  };
  for (size_t side = 0; side < outline.count(); ++side) {
    const bool isGable = std::ranges::any_of(
        seams, [&](const PlanLine& seam) { return endsWithin(side, seam.a) || endsWithin(side, seam.b); });
    if (isGable) { outline.sides[side] = RoofSide::kGable; }
  }
}

}  // namespace ardenix::arch
