#include "host/drawing/part_selection.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

#include "host/geometry/curve.h"

namespace brevan {

namespace {

bool touches(const Box& box, const Curve& curve) {
  if (box.holds(startOf(curve))) { return true; }
  constexpr double kExact = 1e-9;
  const std::array<Point, 4> corners = {box.low, {box.high.x, box.low.y}, box.high, {box.low.x, box.high.y}};
  for (size_t corner = 0; corner < corners.size(); ++corner) {
    const Segment side{corners[corner], corners[(corner + 1) % corners.size()]};
    if (!crossings(side, curve, kExact).empty()) { return true; }
  }
  return false;
}

// A line or arc by its run, all else by the room it takes, which is known to meet the box.
bool touches(const Box& box, const Primitive& primitive) {
  if (const auto* line = std::get_if<Line>(&primitive.geometry)) { return touches(box, Curve(*line)); }
  if (const auto* arc = std::get_if<Arc>(&primitive.geometry)) { return touches(box, Curve(*arc)); }
  return true;
}

bool holdsAll(const Drawing& drawing, const Box& box, const std::vector<PrimitiveId>& part) {
  return std::ranges::all_of(part, [&](PrimitiveId id) { return box.holds(drawing.bounds(*drawing.find(id))); });
}

}  // namespace

bool isChangeable(const Drawing& drawing, PrimitiveId id) {
  const Layer* layer = drawing.layer(drawing.find(id)->layer);
  return layer != nullptr && layer->visible && !layer->locked;
}

std::vector<PrimitiveId> partOf(const Drawing& drawing, PrimitiveId id) {
  if (!isChangeable(drawing, id)) { return {}; }
  const GroupId group = drawing.find(id)->group;
  if (group == 0) { return {id}; }
  std::vector<PrimitiveId> members = drawing.membersOf(group);
  std::erase_if(members, [&drawing](PrimitiveId member) { return !isChangeable(drawing, member); });
  return members;
}

void togglePart(Drawing& drawing, PrimitiveId id) {
  const bool selected = drawing.isSelected(id);
  for (const PrimitiveId member : partOf(drawing, id)) { selected ? drawing.deselect(member) : drawing.select(member); }
}

WindowTakes windowTakes(const Drawing& drawing, Point corner, Point opposite) {
  const bool rightwards = (corner.x <= opposite.x) != drawing.parameters().turnedOnPaper();
  return rightwards ? WindowTakes::kWhatItHolds : WindowTakes::kWhatItTouches;
}

void selectParts(Drawing& drawing, const Box& box, WindowTakes takes) {
  std::set<GroupId> judged;
  for (const PrimitiveId id : drawing.inBox(box)) {
    const Primitive& primitive = *drawing.find(id);
    const bool touching = takes == WindowTakes::kWhatItTouches;
    if (drawing.isSelected(id) || !isChangeable(drawing, id) || (touching && !touches(box, primitive))) { continue; }
    if (primitive.group != 0 && !judged.insert(primitive.group).second) { continue; }
    const std::vector<PrimitiveId> part = partOf(drawing, id);
    if (!touching && !holdsAll(drawing, box, part)) { continue; }
    for (const PrimitiveId member : part) { drawing.select(member); }
  }
}

}  // namespace brevan
