#include "host/core/path_names.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "frame/host/core_services.h"
#include "host/core/system_reason.h"
#include "host/core/text_encoding.h"

namespace brevan {
namespace {

bool somethingAt(const std::string& path) {
  std::error_code error;
  return std::filesystem::symlink_status(path, error).type() != std::filesystem::file_type::not_found && !error;
}

}  // namespace

std::string forwardSlashes(std::string_view path) {
  std::string forward(path);
  std::replace(forward.begin(), forward.end(), '\\', '/');
  return forward;
}

std::vector<std::string> pathParts(std::string_view path) {
  std::vector<std::string> parts;
  for (size_t at = 0; at < path.size();) {
    const size_t end = std::min(path.find('/', at), path.size());
    const std::string_view part = path.substr(at, end - at);
    if (!part.empty() && part != ".") { parts.emplace_back(part); }
    at = end + 1;
  }
  return parts;
}

bool isRooted(std::string_view path) { return path.starts_with('/') || namesDrive(path); }

bool namesDrive(std::string_view path) {
  return path.size() > 1 && path[1] == ':' && lowered(path[0]) >= 'a' && lowered(path[0]) <= 'z';
}

bool isDeviceName(std::string_view part) {
  constexpr std::array<std::string_view, 6> kPlain = {"con", "nul", "aux", "prn", "conin$", "conout$"};
  constexpr std::array<std::string_view, 2> kNumbered = {"com", "lpt"};
  std::string_view stem = part.substr(0, part.find_first_of(".:"));
  while (!stem.empty() && stem.back() == ' ') { stem.remove_suffix(1); }
  const auto is = [stem](std::string_view name) { return equalWithoutCase(stem, name); };
  if (std::any_of(kPlain.begin(), kPlain.end(), is)) { return true; }
  if (stem.size() != 4 || stem[3] < '1' || stem[3] > '9') { return false; }
  stem.remove_suffix(1);
  return std::any_of(kNumbered.begin(), kNumbered.end(),
                     [stem](std::string_view name) { return equalWithoutCase(stem, name); });
}

MatchedPath matchPath(const std::string& folder, std::string_view relative) {
  FolderNames names;
  return matchPath(names, folder, relative);
}

MatchedPath matchPath(FolderNames& names, const std::string& folder, std::string_view relative) {
  std::string path = folder.ends_with('/') ? folder.substr(0, folder.size() - 1) : folder;
  bool found = true;
  for (const std::string& part : pathParts(relative)) {
    const size_t folderLength = path.size();
    path.append("/").append(part);
    if (!found || part == ".." || somethingAt(path)) { continue; }
    const std::string name = names.matching(path.substr(0, folderLength + 1), part);
    found = !name.empty();
    if (found) { path.replace(folderLength + 1, std::string::npos, name); }
  }
  if (path.empty()) { path = "/"; }
  std::error_code error;
  return {path, std::filesystem::exists(path, error) && !error};
}

std::string physicalPath(const std::string& path) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::absolute(path, error);
  std::filesystem::path physical = error ? whole : std::filesystem::weakly_canonical(whole, error);
  if (error) { throw HostFailure("cannot follow \"" + messageText(path) + "\": " + systemReason(error.value())); }
  std::string text = physical.lexically_normal().string();
  if (text.size() > 1 && text.back() == '/') { text.pop_back(); }
  return text;
}

bool liesBelow(std::string_view path, std::string_view folder) {
  if (folder == "/") { return path.size() > 1; }
  return path.size() > folder.size() + 1 && path.starts_with(folder) && path[folder.size()] == '/';
}

}  // namespace brevan
