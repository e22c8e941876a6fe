#pragma once

#include "host/window/user.h"

namespace brevan {

// Nobody sits before the host: every question is left as with Escape, nothing is shown. For what runs without a
// person and asks nothing: previews, looking at dialogs, measuring.
class SilentUser : public User {
 public:
  PointAnswer askPoint(const std::string&) override { return {}; }
  TextAnswer askText(const std::string&, const std::string&) override { return {}; }
  BoxAnswer showMessage(const MessageBox&) override { return BoxAnswer::kCancel; }
  std::optional<size_t> chooseFromMenu(const std::vector<std::string>&) override { return std::nullopt; }
  std::optional<ChosenFile> chooseFile(const FileRequest&) override { return std::nullopt; }
  std::optional<int> choosePen(const std::string&, int) override { return std::nullopt; }
  bool runDialog(dialog::Dialog&) override { return false; }
  void showStatus(const std::string&) override {}
  void showPrompt(const std::string&) override {}
  void showProgress(int, int, const std::string&) override {}
};

}  // namespace brevan
