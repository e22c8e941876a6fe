#pragma once

#include <stdexcept>
#include <string>

#include "host/macros/variables.h"
#include "host/window/drawing_window.h"
#include "host/window/silent_user.h"

namespace bench {

// What a benchmark is told is a mistake of its own.
class Nobody : public brevan::SilentUser {
 public:
  BoxAnswer showMessage(const brevan::MessageBox& box) override { throw std::logic_error(box.text); }
  void showStatus(const std::string& text) override { throw std::logic_error(text); }
};

// A drawing window on which macros run; one that fails ends the benchmark.
class SilentWindow {
 public:
  brevan::DrawingWindow& window() { return window_; }
  brevan::Drawing& drawing() { return window_.drawing(); }
  void macro(const std::string& text) { window_.gsExecuteMacro(text); }

 private:
  Nobody user_;
  brevan::MacroVariables variables_;
  brevan::DrawingWindow window_{"Drawing1", {user_, variables_, nullptr}};
};

}  // namespace bench
