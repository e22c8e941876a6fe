#include <algorithm>
#include <set>

#include "host/drawing/wall_joins.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

// The walls selected, with those that they meet on the layers named.
void joinSelectedWalls(MacroRun& run) {
  Drawing& drawing = run.window.drawing();
  std::set<int> layers;
  for (size_t at = 0; run.has(at); ++at) { layers.insert(drawing.layerNamed(run.text(at))); }
  std::set<GroupId> walls;
  for (const PrimitiveId id : drawing.selection()) {
    const GroupId group = drawing.find(id)->group;
    if (group != 0) { walls.insert(group); }
  }
  joinWalls(drawing, {walls.begin(), walls.end()}, [&](GroupId other) {
    const std::vector<PrimitiveId>& members = drawing.group(other).members;
    return !members.empty() && layers.contains(drawing.find(members.front())->layer);
  });
}

}  // namespace brevan::macroHandlers
