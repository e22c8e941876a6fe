#pragma once

#include <stdexcept>
#include <string>

#include "host/macros/variables.h"
#include "host/window/drawing_window.h"

namespace bench {

// Nobody is asked anything while something is measured.
class Nobody : public brevan::User {
 public:
  brevan::PointAnswer askPoint(const std::string&) override { return {}; }
  brevan::TextAnswer askText(const std::string&, const std::string&) override { return {}; }
  BoxAnswer showMessage(const brevan::MessageBox& box) override { throw std::logic_error(box.text); }
  std::optional<size_t> chooseFromMenu(const std::vector<std::string>&) override { return std::nullopt; }
  std::optional<std::string> chooseFile(const brevan::FileRequest&) override { return std::nullopt; }
  std::optional<int> choosePen(const std::string&, int) override { return std::nullopt; }
  bool runDialog(dialog::Dialog&) override { return false; }
  void showStatus(const std::string& text) override { throw std::logic_error(text); }
  void showPrompt(const std::string&) override {}
  void showProgress(int, int, const std::string&) override {}
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
