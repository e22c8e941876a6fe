#pragma once

#include <span>
#include <string_view>

namespace brevan {

class DrawingWindow;

// A tool asks its user for points and texts through the window, and draws or changes what they name. It ends
// at the space bar; what Escape leaves stays as drawn so far. Whoever runs it makes it one step of undo.
struct DrawingTool {
  std::string_view name;     // of the script statement `tool NAME`
  std::string_view caption;  // menu caption, "&" marking the mnemonic
  std::string_view hint;
  bool changesSelection;  // works on what is selected, and asks for it where nothing is
  void (*run)(DrawingWindow& window);
};

std::span<const DrawingTool> drawingTools();
// Null where there is none of this name.
const DrawingTool* drawingTool(std::string_view name);

}  // namespace brevan
