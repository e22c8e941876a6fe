#include "survey/figure_arcs.h"

#include <numbers>
#include <optional>
#include <utility>

namespace ardenix::survey {

namespace {

// Drawn ends meet the corners within this; coordinates are printed with three decimals.
constexpr double kMeeting = 0.001;

bool joins(const Side& side, Point a, Point b) {
  return distance(a, side.from) <= kMeeting && distance(b, side.to) <= kMeeting;
}

bool isSeen(CCadWindow& view) {
  PrimHeader header;
  LayerDef layer;
  return view.gsGetPrimHeader(header) != 0 && view.gsGetLayerDefIndex(header.layer, layer) != 0 && layer.visible;
}

bool lineJoins(CCadWindow& view, const Side& side) {
  Point a;
  Point b;
  view.gsGetLine(a.x, a.y, b.x, b.y);
  return joins(side, a, b) || joins(side, b, a);
}

// The current arc as it runs along the side.
std::optional<SideArc> arcAlong(CCadWindow& view, const Side& side) {
  constexpr double kFullCircle = 2.0 * std::numbers::pi;
  Point start;
  Point centre;
  Point end;
  int direction = 0;
  view.gsGetArc(start.x, start.y, centre.x, centre.y, end.x, end.y, direction);
  const bool along = joins(side, start, end);
  if (!along && !joins(side, end, start)) { return std::nullopt; }
  double sweep = angleOf(side.to - centre) - angleOf(side.from - centre);
  const bool counterClockwise = (direction == 0) == along;
  if (counterClockwise && sweep <= 0.0) { sweep += kFullCircle; }
  if (!counterClockwise && sweep >= 0.0) { sweep -= kFullCircle; }
  return SideArc{centre, sweep};
}

// Looks at what lies at the first corner.
std::optional<SideArc> arcOf(CCadWindow& view, const Side& side) {
  const Point low = side.from - Point{kMeeting, kMeeting};
  const Point high = side.from + Point{kMeeting, kMeeting};
  const int scan = view.gsGetListHandle(kAnyPrimitive, -1, 0, low.x, low.y, high.x, high.y, 0, 0);
  std::optional<SideArc> found;
  bool straight = side.join.distance <= kMeeting;
  for (int type = view.gsGetNextPrim(scan); type != 0 && !straight; type = view.gsGetNextPrim(scan)) {
    if (!isSeen(view)) { continue; }
    if (type == kLinePrimitive) { straight = lineJoins(view, side); }
    if (type == kArcPrimitive && !found) { found = arcAlong(view, side); }
  }
  view.gsFreeListHandle(scan);
  return straight ? std::nullopt : found;
}

}  // namespace

void takeArcs(CCadWindow& view, Figure& figure) {
  for (Side& side : figure) { side.arc = arcOf(view, side); }
}

}  // namespace ardenix::survey
