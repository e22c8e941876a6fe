#pragma once

#include <cstdint>
#include <string_view>

#include "frame/host/window.h"
#include "frame/platform.h"

namespace ardenix {

// One dialog's page in the compiled help file.
struct HelpTopic {
  std::string_view dialog;
  std::string_view path;
};

// The page of a dialog, by the name in the table of help_topics.cpp. Asking for a dialog that has none
// is a mistake of ours and stops the program.
const HelpTopic& helpTopic(std::string_view dialog);

// Opens pages of the compiled help file beside the host's own help file. The help viewer is bound at
// first use and kept; once it cannot be bound, every later request fails without another try.
class Help {
 public:
  // As the help viewer exports it: window, file, command, data; null when it failed.
  using Viewer = void* (*)(void* window, const char* file, unsigned command, uintptr_t data);

  explicit Help(Platform& platform) : platform_(platform) {}

  // Reports "Unable to open help file" on the dialog when the page cannot be shown.
  void open(CWnd& dialog, const HelpTopic& topic);
  // As open, but answers instead of reporting.
  bool show(CWnd& dialog, const HelpTopic& topic);

 private:
  void bindViewer();

  Platform& platform_;
  Viewer viewer_ = nullptr;
  bool unavailable_ = false;
};

}  // namespace ardenix
