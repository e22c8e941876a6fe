#include <algorithm>

#include "host/drawing/hatch_area.h"
#include "host/drawing/hatch_patterns.h"
#include "host/drawing/outlines.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

std::string patternNames() {
  std::string names;
  for (const HatchPattern& pattern : hatchPatterns()) {
    names += (names.empty() ? "" : ", ") + std::string(pattern.name);
  }
  return names;
}

// What the first three arguments say: pattern, scale, angle.
Hatch hatchOf(const MacroRun& run) {
  Hatch hatch;
  hatch.pattern = run.text(0);
  if (hatchPattern(hatch.pattern) == nullptr) {
    throw MacroError(run.column(0), "there is no pattern \"" + run.text(0) + "\"; there are " + patternNames());
  }
  hatch.scale = run.number(1);
  if (!(hatch.scale > 0.0)) { throw MacroError(run.column(1), "a pattern's scale is above 0"); }
  hatch.angle = run.number(2);
  return hatch;
}

PrimitiveId fill(MacroRun& run, std::vector<HatchLoop> loops) {
  Hatch hatch = hatchOf(run);
  hatch.origin = loops.front().front().at;
  hatch.loops = std::move(loops);
  return drawInStyle(run.window, std::move(hatch));
}

// The one group of which all that is selected is a part; 0 where there is none.
GroupId commonGroup(const Drawing& drawing, const std::vector<PrimitiveId>& ids) {
  const GroupId group = drawing.find(ids.front())->group;
  const bool common =
      std::all_of(ids.begin(), ids.end(), [&](PrimitiveId id) { return drawing.find(id)->group == group; });
  return common ? group : 0;
}

}  // namespace

void hatchPolygon(MacroRun& run) {
  constexpr size_t kFirstPoint = 3;
  HatchLoop corners;
  for (size_t at = kFirstPoint; run.has(at); ++at) { corners.push_back({run.point(at)}); }
  if (corners.size() < 3) { throw MacroError(run.column(kFirstPoint), "an area has three corners or more"); }
  fill(run, {std::move(corners)});
}

void hatchInside(MacroRun& run) {
  std::vector<HatchLoop> loops = hatchAreaAround(run.window.drawing(), run.window.boundaries(), run.point(3));
  if (loops.empty()) { throw MacroError(run.column(3), "no closed boundary surrounds this point"); }
  fill(run, std::move(loops));
}

// A hatch of one part's outlines becomes a piece of that part.
void hatchSelection(MacroRun& run) {
  Drawing& drawing = run.window.drawing();
  std::vector<Curve> curves;
  std::vector<PrimitiveId> sides;
  for (const PrimitiveId id : drawing.selection()) {
    const auto curve = curveOf(*drawing.find(id));
    if (!curve) { continue; }
    curves.push_back(*curve);
    sides.push_back(id);
  }
  const Outlines outlines = outlinesOf(curves);
  if (!outlines.faults.empty()) { throw MacroError(1, "what is selected does not close: " + outlines.faults.front()); }
  if (outlines.loops.empty()) { throw MacroError(1, "nothing is selected that closes round an area"); }
  std::vector<HatchLoop> loops;
  for (const Loop& loop : outlines.loops) { loops.push_back(hatchLoop(loop)); }
  const PrimitiveId id = fill(run, std::move(loops));
  const GroupId part = commonGroup(drawing, sides);
  if (part == 0 || drawing.find(id)->group != 0) { return; }
  Primitive grouped = *drawing.find(id);
  grouped.group = part;
  drawing.replace(id, std::move(grouped));
}

}  // namespace brevan::macroHandlers
