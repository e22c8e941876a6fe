#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/main_frame.h"
#include "host/core/file_services.h"

namespace brevan {

// The folders and files below one folder, as the side bar shows them and scripts name them. A folder is read when it is
// first looked into. Paths inside are relative to the top, UTF-8, with "/"; links that lead out of the top are not
// followed.
class FolderTree : public COXShellFolderTree {
 public:
  explicit FolderTree(FileServices& files) : files_(files) {}

  void SetShowDesktopItem(bool) override {}
  void SetShowFiles(bool shown) override { showsFiles_ = shown; }
  void SetFilter(std::string_view extension) override { extension_ = extension; }
  void InitializeTree(std::string_view folder) override;
  void OpenFolder(std::string_view) override {}
  [[nodiscard]] std::string GetFullPath() const override { return selected_; }
  void OnSelection(Selection selection) override { selection_ = std::move(selection); }
  void SetFocus() override {}

  struct Listing {
    std::vector<std::string> folders;  // names, in order without regard to case
    std::vector<std::string> files;
    std::string reason;  // why nothing can be listed
  };
  // What a folder below the top holds, "" being the top itself.
  const Listing& list(const std::string& folder);
  // Every file below the top; read once.
  const std::vector<std::string>& allFiles();
  // A file or folder as it is spelled on disk, named without regard to case and with either separator.
  std::optional<std::string> find(std::string_view item);

  // Whoever shows the tree hears of another folder.
  std::function<void()> onChanged;

  // The user picked a file or a folder: whoever put the tree up hears of it. Throws HostFailure for a name that holds
  // characters beyond those of the module.
  void pick(const std::string& path);

  [[nodiscard]] const std::string& folder() const { return folder_; }
  [[nodiscard]] std::string nativePath(const std::string& path) const;

 private:
  [[nodiscard]] Listing read(const std::string& folder) const;
  [[nodiscard]] bool isShown(const std::string& fileName) const;
  void gather(const std::string& folder, std::vector<std::string>& files);

  FileServices& files_;
  bool showsFiles_ = true;
  std::string extension_;
  std::string folder_;  // as the module named it
  std::string native_;
  std::map<std::string, Listing> listings_;
  std::optional<std::vector<std::string>> all_;
  std::string selected_;
  Selection selection_;
};

}  // namespace brevan
