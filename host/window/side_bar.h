#pragma once

#include <memory>
#include <string>
#include <vector>

#include "frame/host/main_frame.h"
#include "host/window/folder_tree.h"

namespace brevan {

// The side bar as far as a host without a desktop has one: it remembers its groups and what they hold.
class SideBar : public COXShortcutBar {
 public:
  explicit SideBar(FileServices& files) : files_(files) {}

  std::shared_ptr<COXShellFolderTree> CreateFolderTree(int) override {
    tree_ = std::make_shared<FolderTree>(files_);
    return tree_;
  }
  int InsertGroup(const char* caption, COXShellFolderTree&) override {
    groups_.emplace_back(shownCaption(caption));
    return static_cast<int>(groups_.size()) - 1;
  }
  void SetGroupMargin(int, int) override {}
  void ExpandGroup(int) override {}
  void RedrawBar() override {}
  void SetFocus() override {}

  [[nodiscard]] const std::vector<std::string>& groups() const { return groups_; }
  // Null where none has been put up.
  [[nodiscard]] FolderTree* tree() const { return tree_.get(); }

 protected:
  // Before a backslash stands the key of a picture.
  static std::string shownCaption(std::string_view caption) {
    return std::string(caption.substr(caption.find('\\') == std::string_view::npos ? 0 : caption.find('\\') + 1));
  }

 private:
  FileServices& files_;
  std::vector<std::string> groups_;
  std::shared_ptr<FolderTree> tree_;
};

}  // namespace brevan
