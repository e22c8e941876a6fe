#include "host/tools/drawing_tools.h"

#include <algorithm>
#include <array>

#include "host/tools/tool_handlers.h"
#include "host/window/drawing_window.h"

namespace brevan {

namespace {

template <void (*Draw)(DrawingWindow&)>
void onLayerSeen(DrawingWindow& window) {
  window.requireDrawable();
  Draw(window);
}

constexpr std::array<DrawingTool, 17> kTools = {{
    {"line", "&Line", "Lines from point to point", false, onLayerSeen<toolHandlers::line>},
    {"polyline", "&Polyline", "A chain of lines that is one group", false, onLayerSeen<toolHandlers::polyline>},
    {"rectangle", "&Rectangle", "A rectangle by two corners", false, onLayerSeen<toolHandlers::rectangle>},
    {"circle", "&Circle", "A circle by centre and a point on it", false, onLayerSeen<toolHandlers::circle>},
    {"arc", "&Arc", "An arc through three points", false, onLayerSeen<toolHandlers::arc>},
    {"text", "&Text", "A line of text", false, onLayerSeen<toolHandlers::text>},
    {"hatch", "&Hatch", "Fills closed areas with a pattern", false, onLayerSeen<toolHandlers::hatch>},
    {"select", "&Select", "Selects items one by one or by a window", true, toolHandlers::select},
    {"erase", "&Erase", "Removes items", true, toolHandlers::erase},
    {"move", "&Move", "Moves items from one point to another", true, toolHandlers::move},
    {"copy", "C&opy", "Copies items from one point to others", true, toolHandlers::copy},
    {"rotate", "Ro&tate", "Turns items about a point", true, toolHandlers::rotate},
    {"mirror", "M&irror", "Mirrors items about a line", true, toolHandlers::mirror},
    {"group", "&Group", "Makes one part of items, under a name", true, toolHandlers::group},
    {"ungroup", "&Ungroup", "Takes a part apart into its items", true, toolHandlers::ungroup},
    {"joinwalls", "&Join Walls", "Opens walls to each other where they meet", true, toolHandlers::joinwalls},
    {"trim", "Tri&m", "Cuts off the piece of a line or arc between its neighbours", false, toolHandlers::trim},
}};

}  // namespace

std::span<const DrawingTool> drawingTools() { return kTools; }

const DrawingTool* drawingTool(std::string_view name) {
  const auto* const tool =
      std::find_if(kTools.begin(), kTools.end(), [name](const DrawingTool& row) { return row.name == name; });
  return tool == kTools.end() ? nullptr : tool;
}

}  // namespace brevan
