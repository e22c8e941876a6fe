#include "host/core/folder_names.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "frame/host/core_services.h"
#include "host/core/stamps.h"
#include "host/core/text_encoding.h"

namespace brevan {

namespace {

// The name as it compares: other characters than the module's have no case.
std::string withoutCase(std::string_view name) {
  auto plain = toWindows1252(name);
  if (!plain) { return std::string(name); }
  std::transform(plain->begin(), plain->end(), plain->begin(), lowered);
  return *plain;
}

FileStamp stampOfFolder(const std::string& folder) {
  struct stat status {};
  return ::stat(folder.c_str(), &status) == 0 ? stampFrom(status) : FileStamp{};
}

// A folder can change twice within a tick of the file system's clock and keep its stamp.
bool changedJustNow(const FileStamp& stamp) {
  using std::chrono::nanoseconds;
  constexpr nanoseconds kSettled = std::chrono::seconds(1);
  const nanoseconds now = std::chrono::system_clock::now().time_since_epoch();
  return now - nanoseconds(stamp.changedNanoseconds) < kSettled;
}

}  // namespace

bool FolderNames::read(const std::string& folder, Names& names) {
  names.clear();
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::string name = entry->path().filename().string();
    std::string& kept = names[withoutCase(name)];
    if (kept.empty() || name < kept) { kept = std::move(name); }
  }
  return !error;
}

// The stamp is older than the names: a folder that changes meanwhile is read again.
const FolderNames::Names& FolderNames::namesIn(const std::string& folder) {
  const FileStamp stamp = stampOfFolder(folder);
  const auto known = kept_.find(folder);
  if (known != kept_.end() && known->second.stamp == stamp) { return known->second.names; }
  if (!read(folder, passing_) || changedJustNow(stamp)) { return passing_; }
  if (kept_.size() >= kMostKept) { kept_.clear(); }
  return kept_.insert_or_assign(folder, Kept{stamp, std::move(passing_)}).first->second.names;
}

std::string FolderNames::matching(const std::string& folder, std::string_view wanted) {
  const Names& names = namesIn(folder);
  const auto found = names.find(withoutCase(wanted));
  return found == names.end() ? std::string() : found->second;
}

}  // namespace brevan
