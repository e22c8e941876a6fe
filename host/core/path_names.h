#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/core/folder_names.h"

namespace brevan {

// Paths here are native (UTF-8) and use "/"; paths from the module may use "\" and any case.

std::string forwardSlashes(std::string_view path);
// Its parts, empty ones and "." left out.
std::vector<std::string> pathParts(std::string_view path);
bool isRooted(std::string_view path);
// "C:..." as Windows writes it.
bool namesDrive(std::string_view path);
// CON, NUL, COM1 and their like, which Windows takes for devices with any ending.
bool isDeviceName(std::string_view part);

struct MatchedPath {
  std::string path;
  bool exists = false;
};
// Follows the parts from a folder, each as it is written or else, where that does not exist, in another case (the
// first in byte order of several). From the first part that is missing on, the rest stands as written.
MatchedPath matchPath(const std::string& folder, std::string_view relative);
// The same, the names of folders known from earlier paths.
MatchedPath matchPath(FolderNames& names, const std::string& folder, std::string_view relative);

// Without links, "." and "..", as far as the path exists. Throws HostFailure where that cannot be told.
std::string physicalPath(const std::string& path);
bool liesBelow(std::string_view path, std::string_view folder);

}  // namespace brevan
