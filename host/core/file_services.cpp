#include "host/core/file_services.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "frame/host/core_services.h"
#include "host/core/safe_file.h"
#include "host/core/text_encoding.h"

namespace brevan {
namespace {

constexpr size_t kMaxCopyBytes = size_t{1} << 30;

[[noreturn]] void refuse(std::string_view path, std::string_view reason) {
  throw HostFailure("path \"" + messageText(path) + "\" is refused: " + std::string(reason));
}

void refuseDevices(std::string_view path) {
  const std::vector<std::string> parts = pathParts(path);
  if (std::any_of(parts.begin(), parts.end(), isDeviceName)) { refuse(path, "it names a device"); }
}

bool climbsOut(std::string_view relative) {
  int depth = 0;
  for (const std::string& part : pathParts(relative)) {
    depth += part == ".." ? -1 : 1;
    if (depth < 0) { return true; }
  }
  return false;
}

std::string withSeparator(std::string folder) {
  if (!folder.ends_with('/')) { folder += '/'; }
  return folder;
}

std::string normalised(const std::string& path) { return std::filesystem::absolute(path).lexically_normal().string(); }

}  // namespace

FileServices::FileServices(const std::string& baseFolder, const std::string& dataFolder,
                           std::optional<Confinement> confinement)
    : baseFolder_(physicalPath(baseFolder)), dataFolder_(withSeparator(physicalPath(dataFolder))) {
  if (!confinement) { return; }
  outputFolder_ = physicalPath(confinement->outputFolder);
  report_ = std::move(confinement->report);
  for (const std::string& folder : confinement->readFolders) { readFolders_.push_back(physicalPath(folder)); }
}

std::string FileServices::checked(std::string_view path) const {
  if (path.find('\0') != std::string_view::npos) { refuse(path, "it holds a NUL byte"); }
  std::string forward = forwardSlashes(path);
  if (outputFolder_.empty()) { return forward; }
  refuseDevices(forward);
  if (namesDrive(forward)) { refuse(path, "it names a drive"); }
  if (!isRooted(forward) && climbsOut(forward)) { refuse(path, "it climbs out of its folder"); }
  return forward;
}

MatchedPath FileServices::locate(const std::string& path) const {
  if (namesDrive(path)) { return {path, false}; }
  if (isRooted(path)) { return matchPath(names_, "/", path); }
  MatchedPath first = matchPath(names_, baseFolder_, path);
  if (first.exists) { return first; }
  MatchedPath second = matchPath(names_, dataFolder_, path);
  return second.exists ? second : first;
}

std::string FileServices::resolveForReading(std::string_view path) const {
  if (path.empty()) { return {}; }
  const MatchedPath found = locate(checked(path));
  if (outputFolder_.empty()) { return found.path; }
  // What a confined program wrote under a name without a root lies below its output folder.
  if (!found.exists && !isRooted(forwardSlashes(path))) {
    const MatchedPath written = matchPath(names_, outputFolder_, forwardSlashes(path));
    if (written.exists && liesBelow(physicalPath(written.path), outputFolder_)) { return written.path; }
  }
  if (namedByScript_) { refuseUnreadable(path, found.path); }
  if (copies_.empty()) { return found.path; }
  const auto copy = copies_.find(physicalPath(found.path));
  return copy == copies_.end() ? found.path : copy->second;
}

void FileServices::refuseUnreadable(std::string_view path, const std::string& found) const {
  const std::string physical = physicalPath(found);
  const auto holds = [&physical](const std::string& folder) { return liesBelow(physical, folder); };
  if (std::any_of(readFolders_.begin(), readFolders_.end(), holds)) { return; }
  if (isRooted(forwardSlashes(path))) {
    refuse(path, "a script names files by their place in its folder; --allow-read lets it read another folder");
  }
  if (!holds(baseFolder_) && !holds(outputFolder_) && !holds(physicalPath(dataFolder_))) {
    refuse(path, "it leads out of the script's folder; --allow-read lets the script read another folder");
  }
}

std::string FileServices::resolveForWriting(std::string_view path) {
  if (path.empty()) { refuse(path, "it has no name"); }
  const std::string forward = checked(path);
  if (namesDrive(forward)) { refuse(path, "it names a drive"); }
  return outputFolder_.empty() ? locate(forward).path : confinedForWriting(forward);
}

std::string FileServices::confinedForWriting(const std::string& path) {
  MatchedPath found = locate(path);
  if (!found.exists && !isRooted(path)) { found = matchPath(names_, outputFolder_, path); }
  std::string physical = physicalPath(found.path);
  const auto copy = copies_.find(physical);
  if (copy != copies_.end()) { return copy->second; }
  if (liesBelow(physical, outputFolder_)) {
    std::filesystem::create_directories(outputFolder_);
    return physical;
  }
  if (leavesByLink(found.path, physical)) { refuse(path, "it leads out of the output folder"); }
  return copyIn(found.path, physical, found.exists);
}

bool FileServices::leavesByLink(const std::string& path, const std::string& physical) const {
  return liesBelow(normalised(path), outputFolder_) && !liesBelow(physical, outputFolder_);
}

std::string FileServices::copyIn(const std::string& shown, const std::string& physical, bool exists) {
  std::filesystem::create_directories(outputFolder_);
  std::string copy = freeName(std::filesystem::path(shown).filename().string());
  if (exists) { saveWhole(copy, readWhole(physical, kMaxCopyBytes)); }
  copies_.emplace(physical, copy);
  if (report_) { report_(shown + (exists ? " is copied to " : " is written to ") + copy + " and used from there"); }
  return copy;
}

std::string FileServices::freeName(const std::string& fileName) const {
  const std::filesystem::path name(fileName);
  const auto taken = [this](const std::string& path) {
    std::error_code error;
    const std::filesystem::file_type type = std::filesystem::symlink_status(path, error).type();
    // A name that is too long would be so with every number.
    if (type == std::filesystem::file_type::none) { refuse(path, error.message()); }
    return type != std::filesystem::file_type::not_found ||
           std::any_of(copies_.begin(), copies_.end(), [&](const auto& row) { return row.second == path; });
  };
  std::string path = outputFolder_ + "/" + fileName;
  for (int number = 2; taken(path); ++number) {
    path = outputFolder_ + "/" + name.stem().string() + "-" + std::to_string(number) + name.extension().string();
  }
  return path;
}

std::string FileServices::resolveForDeleting(std::string_view path) const {
  std::string found = resolveForReading(path);
  if (outputFolder_.empty()) { return found; }
  found = physicalPath(found);
  if (!liesBelow(found, outputFolder_)) { refuse(path, "it lies outside the output folder and may not be deleted"); }
  return found;
}

std::string resolveInside(const std::string& folder, std::string_view path) {
  const std::string forward = forwardSlashes(path);
  const std::vector<std::string> parts = pathParts(forward);
  if (parts.empty()) { refuse(path, "it has no name"); }
  if (forward.find('\0') != std::string::npos) { refuse(path, "it holds a NUL byte"); }
  if (isRooted(forward)) { refuse(path, "it must not have a root"); }
  if (std::find(parts.begin(), parts.end(), "..") != parts.end()) { refuse(path, "\"..\" is not taken"); }
  refuseDevices(forward);
  std::string physical = physicalPath(matchPath(folder, forward).path);
  if (!liesBelow(physical, physicalPath(folder))) { refuse(path, "it leads out of its folder"); }
  return physical;
}

}  // namespace brevan
