#pragma once

#include "host/macros/variables.h"
#include "host/window/drawing_window.h"
#include "host/window/silent_user.h"

namespace brevan {

// What a window that nobody sees needs about it.
struct Unseen {
  SilentUser nobody;
  MacroVariables variables;
};

// A window of its own in which a part is tried out, for a preview or to know what it looks like; nobody is asked.
class UnseenWindow : private Unseen, public DrawingWindow {
 public:
  // drawings: where symbol files are read; null: nowhere.
  explicit UnseenWindow(DrawingSource* drawings)
      : DrawingWindow("Unseen", WindowServices{nobody, variables, nullptr, drawings}) {}
};

}  // namespace brevan
