#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/core/path_names.h"

namespace brevan {

// Which file a path means. Paths in and out are UTF-8; "/" and "\" both separate, names match without
// regard to case. A path without a root is looked for below the base folder, then below the data folder.
//
// Two policies. Free: every path means itself. Confined: nothing outside the output folder is written or
// deleted. A file outside that is to be written is copied into the output folder at the first time, beside
// whatever bears its name there already, and from then on the copy stands for it. Confined
// paths that climb out of their base folder by "..", leave the output folder by a link, name a drive or
// a device are refused. Every refusal is a HostFailure, thrown before anything is opened.
class FileServices {
 public:
  struct Confinement {
    std::string outputFolder;
    // Is given "PATH is copied to COPY and used from there", in UTF-8.
    std::function<void(const std::string& message)> report;
    // Folders besides its own, the data and the output folder in which a script may name files to be read.
    std::vector<std::string> readFolders = {};
  };

  // While one is alive, paths to be read are such as a script of unknown origin names: confined, neither a full path
  // nor a link leads to a file outside the folders that the script may read. Paths from settings and choosers are free.
  class NamedByScript {
   public:
    explicit NamedByScript(FileServices& files) : files_(files) { files_.namedByScript_ = true; }
    NamedByScript(const NamedByScript&) = delete;
    NamedByScript& operator=(const NamedByScript&) = delete;
    ~NamedByScript() { files_.namedByScript_ = false; }

   private:
    FileServices& files_;
  };

  FileServices(const std::string& baseFolder, const std::string& dataFolder,
               std::optional<Confinement> confinement = std::nullopt);

  void setBaseFolder(const std::string& folder);
  [[nodiscard]] const std::string& baseFolder() const { return baseFolder_; }
  // Ends in a separator.
  [[nodiscard]] const std::string& dataFolder() const { return dataFolder_; }
  // "" under the free policy.
  [[nodiscard]] const std::string& outputFolder() const { return outputFolder_; }

  // Where nothing of the name exists, the place where it was looked for first.
  [[nodiscard]] std::string resolveForReading(std::string_view path) const;
  // A file that does not exist yet and has no root belongs below the base folder, confined below the
  // output folder.
  std::string resolveForWriting(std::string_view path);
  [[nodiscard]] std::string resolveForDeleting(std::string_view path) const;

 private:
  [[nodiscard]] std::string checked(std::string_view path) const;
  [[nodiscard]] MatchedPath locate(const std::string& path) const;
  [[nodiscard]] std::string confinedForWriting(const std::string& path);
  void refuseUnreadable(std::string_view path, const std::string& found) const;
  [[nodiscard]] bool leavesByLink(const std::string& path, const std::string& physical) const;
  std::string copyIn(const std::string& shown, const std::string& physical, bool exists);
  [[nodiscard]] std::string freeName(const std::string& fileName) const;

  std::string baseFolder_;
  std::string dataFolder_;
  std::string outputFolder_;
  std::vector<std::string> readFolders_;
  bool namedByScript_ = false;
  mutable FolderNames names_;
  std::function<void(const std::string&)> report_;
  std::map<std::string, std::string> copies_;  // by the physical path of what each stands for
};

// The physical path of a name that a drawing, symbol file or script gives; it must not leave the
// folder: no root, drive, device, "..", no link that leads out. Throws HostFailure with name and reason.
std::string resolveInside(const std::string& folder, std::string_view path);

}  // namespace brevan
