#include <algorithm>
#include <set>

#include "host/drawing/wall_joins.h"
#include "host/tools/tool_handlers.h"
#include "host/tools/tool_prompts.h"
#include "host/window/drawing_window.h"

namespace brevan::toolHandlers {

// Several are joined with each other, a single one with all that it meets.
void joinwalls(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  Drawing& drawing = window.drawing();
  std::set<GroupId> chosen;
  for (const PrimitiveId id : drawing.selection()) {
    const GroupId group = drawing.find(id)->group;
    if (group != 0) { chosen.insert(group); }
  }
  if (chosen.empty()) {
    window.gsSetStatus("Nothing selected is a wall: a wall is one part of parallel lines.");
    return;
  }
  const bool isAlone = chosen.size() == 1;
  joinWalls(drawing, {chosen.begin(), chosen.end()}, [&](GroupId other) { return isAlone || chosen.contains(other); });
}

}  // namespace brevan::toolHandlers
