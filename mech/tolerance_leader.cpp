#include "mech/tolerance_leader.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "frame/drafting/part_round.h"
#include "frame/drafting/sheet_axes.h"
#include "mech/nearest_line.h"

namespace ardenix::mech {

namespace {

// The point of the segment that lies nearest to the foot on its endless line.
Point onSegment(const LineFoot& line) {
  const Point along = line.b - line.a;
  const double part = dot(line.foot - line.a, along) / dot(along, along);
  return line.a + along * std::clamp(part, 0.0, 1.0);
}

std::optional<Point> onNearestLine(CCadWindow& view, Point at) {
  const auto line = footOnNearestLine(view, at);
  if (!line || nearlyEqual(line->a, line->b)) { return std::nullopt; }
  return onSegment(*line);
}

// An arc that runs counter-clockwise, all round where its ends meet.
struct Bow {
  Point start;
  Point centre;
  Point end;
};
bool holds(const Bow& bow, Point direction) {
  const auto turnTo = [&bow](Point way) {
    const Point from = bow.start - bow.centre;
    const double angle = std::atan2(cross(from, way), dot(from, way));
    return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
  };
  return nearlyEqual(bow.start, bow.end) || turnTo(direction) <= turnTo(bow.end - bow.centre);
}

std::optional<Point> onNearestArc(CCadWindow& view, Point at) {
  if (view.gsNearestPrim(kArcPrimitive, at.x, at.y) != kArcPrimitive) { return std::nullopt; }
  Bow bow;
  int clockwise = 0;
  view.gsGetArc(bow.start.x, bow.start.y, bow.centre.x, bow.centre.y, bow.end.x, bow.end.y, clockwise);
  if (clockwise != 0) { std::swap(bow.start, bow.end); }
  const Point way = at - bow.centre;
  if (isOrigin(way) || !holds(bow, way)) { return std::nullopt; }
  return bow.centre + unit(way) * distance(bow.centre, bow.start);
}

// The nearest point of an outline; nothing where the point lies clear of all.
std::optional<Point> onOutline(CCadWindow& view, Point at) {
  constexpr double kNear = 1.0;  // millimetres on paper
  std::optional<Point> nearest;
  double least = kNear * paperMillimetre(view);
  for (const auto& candidate : {onNearestLine(view, at), onNearestArc(view, at)}) {
    if (!candidate || distance(*candidate, at) > least) { continue; }
    nearest = candidate;
    least = distance(*candidate, at);
  }
  return nearest;
}

// A disk drawn by the width of its rim.
void drawDot(const AnnotationPen& pen, Point at) {
  constexpr double kRadius = 0.5;  // units
  constexpr double kTenths = 10.0;
  LineStyle rim = AnnotationPen::kStrokes;
  rim.width = kRadius * kTenths * pen.style().scale;
  DraftingPen(pen.view(), rim).circle(at, kRadius / 2.0 * pen.unit());
}

}  // namespace

bool leadersWanted(const DefinitionStore& store) { return store.extraWanted(kAnnotationSection, kLeaderKey); }
bool stackingWanted(const DefinitionStore& store) { return store.extraWanted(kAnnotationSection, kStackKey); }

std::optional<Leader> askLeader(CCadWindow& view) {
  const auto at = askPoint(view, "Indicate the feature that the leader leads to (else spacebar for none)");
  if (!at) { return std::nullopt; }
  const auto outline = onOutline(view, *at);
  return Leader{.feature = outline.value_or(*at), .onOutline = outline.has_value()};
}

void drawLeader(const AnnotationPen& pen, Leader leader) {
  constexpr double kHeadLength = 30.0;
  constexpr double kHeadWidth = 10.0;
  if (nearlyEqual(leader.bend, leader.feature)) { leader.bend = leader.begin; }
  pen.strokes().line(leader.begin, leader.bend);
  if (leader.onOutline) {
    const double scale = pen.style().scale;
    pen.strokes().arrow(leader.bend, leader.feature, {.length = kHeadLength * scale, .width = kHeadWidth * scale});
    return;
  }
  pen.strokes().line(leader.bend, leader.feature);
  drawDot(pen, leader.feature);
}

}  // namespace ardenix::mech
