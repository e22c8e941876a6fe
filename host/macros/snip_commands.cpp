#include "host/drawing/drawing.h"
#include "host/geometry/clip_region.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

void cutInto(Drawing& drawing, PrimitiveId id, const std::vector<Curve>& pieces) {
  if (pieces.empty()) {
    drawing.remove(id);
    return;
  }
  Primitive part = *drawing.find(id);
  const bool selected = drawing.isSelected(id);
  for (size_t at = 1; at < pieces.size(); ++at) {
    part.geometry = geometryOf(pieces[at]);
    const PrimitiveId added = drawing.add(part);
    if (selected) { drawing.select(added); }
  }
  part.geometry = geometryOf(pieces.front());
  drawing.replace(id, std::move(part));
}

// Lines and arcs are cut where they cross the edge; what cannot be cut is taken whole, and lies inside
// only when all of it does.
void snipOne(Drawing& drawing, PrimitiveId id, const ClipRegion& region, const KeepRule& rule) {
  const Primitive& primitive = *drawing.find(id);
  const auto curve = curveOf(primitive);
  if (!curve) {
    const bool inside = region.holds(drawing.bounds(primitive));
    if (!(inside ? rule.inside : rule.outside)) { drawing.remove(id); }
    return;
  }
  const Box extent = boundsOf(*curve);
  if (!region.bounds().grownBy(ClipRegion::kEdgeWidth).meets(extent)) {
    if (!rule.outside) { drawing.remove(id); }
    return;
  }
  if (const auto pieces = cutByRegion(*curve, region, rule)) { cutInto(drawing, id, *pieces); }
}

// The selection where there is one; else what lies near, or everything when what lies outside goes.
std::vector<PrimitiveId> cutCandidates(DrawingWindow& window, const ClipRegion& region, const KeepRule& rule) {
  const Drawing& drawing = window.drawing();
  std::vector<PrimitiveId> ids;
  if (drawing.hasSelection()) {
    ids = drawing.selection();
  } else if (rule.outside) {
    ids = drawing.inBox(region.bounds().grownBy(ClipRegion::kEdgeWidth));
  } else {
    ids.reserve(drawing.count());
    drawing.forEach([&ids](PrimitiveId id, const Primitive&) { ids.push_back(id); });
  }
  std::erase_if(ids, [&window](PrimitiveId id) { return !window.isChangeable(id); });
  return ids;
}

void snip(DrawingWindow& window, const ClipRegion& region, const KeepRule& rule) {
  for (const PrimitiveId id : cutCandidates(window, region, rule)) { snipOne(window.drawing(), id, region, rule); }
}

ClipRegion regionOf(const MacroRun& run, bool window) {
  const Point first = run.point(3);
  const Point second = run.point(4);
  if (window) {
    if (first.x == second.x || first.y == second.y) {
      throw MacroError(run.column(4), "SNIP expects the opposite corners of a window");
    }
    return ClipRegion::window(first, second);
  }
  if (first == second) { throw MacroError(run.column(4), "SNIP expects a circle with a radius above 0"); }
  return ClipRegion::circle(first, distance(first, second));
}

}  // namespace

void snipRegion(MacroRun& run) {
  const bool window = run.text(0) == "Y";
  const bool removesInside = run.text(1) == "Y";
  const bool drawsOutline = run.text(2) == "Y";
  const ClipRegion region = regionOf(run, window);
  // The edge belongs to the region; where it is drawn anew, what lay along it goes.
  snip(run.window, region, {!removesInside, !removesInside && !drawsOutline, removesInside});
  if (!drawsOutline) { return; }
  for (const Curve& side : region.outline()) { drawInStyle(run.window, geometryOf(side)); }
}

void snipPolygon(MacroRun& run) {
  std::vector<Point> corners;
  for (size_t at = 0; run.has(at); ++at) { corners.push_back(run.point(at)); }
  constexpr size_t kFewest = 3;
  if (corners.size() < kFewest) { throw MacroError(run.column(0), "POLYSNIP expects a polygon of 3 corners or more"); }
  snip(run.window, ClipRegion::polygon(corners), {true, true, false});
}

}  // namespace brevan::macroHandlers
