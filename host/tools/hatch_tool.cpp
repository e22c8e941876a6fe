#include "frame/host/number_text.h"
#include "host/drawing/hatch_patterns.h"
#include "host/tools/tool_handlers.h"
#include "host/tools/tool_prompts.h"
#include "host/window/drawing_window.h"

namespace brevan::toolHandlers {

namespace {

// The name of the pattern that the user chooses; empty for none.
std::string askPattern(DrawingWindow& window) {
  std::string titles;
  for (const HatchPattern& pattern : hatchPatterns()) {
    titles += (titles.empty() ? "" : ",") + std::string(pattern.title);
  }
  const int chosen = window.gsSubMenu(titles);
  return chosen < 1 ? std::string() : std::string(hatchPatterns()[static_cast<size_t>(chosen) - 1].name);
}

}  // namespace

// What is selected is hatched as it stands, else the areas round the points that the user gives.
void hatch(DrawingWindow& window) {
  const std::string pattern = askPattern(window);
  if (pattern.empty()) { return; }
  if (window.drawing().hasSelection()) {
    window.gsExecuteMacro("HATCH \"S\" \"" + pattern + "\" 1 0");
    return;
  }
  while (const auto at = askPoint(window, "Indicate a point inside the area to hatch (space bar to stop)")) {
    window.gsExecuteMacro("HATCH \"I\" \"" + pattern + "\" 1 0 [" + numberText::shortest(at->x) + "," +
                          numberText::shortest(at->y) + "]");
  }
}

}  // namespace brevan::toolHandlers
