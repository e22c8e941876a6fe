#include "host/window/folder_tree.h"

#include <algorithm>
#include <filesystem>

#include "frame/host/core_services.h"
#include "host/core/path_names.h"
#include "host/core/text_encoding.h"

namespace brevan {

namespace {

namespace fs = std::filesystem;

std::string below(const std::string& folder, const std::string& name) {
  return folder.empty() ? name : folder + '/' + name;
}

void sortWithoutCase(std::vector<std::string>& names) {
  std::ranges::sort(names, [](const std::string& a, const std::string& b) {
    const auto before = [](char x, char y) { return lowered(x) < lowered(y); };
    if (std::ranges::lexicographical_compare(a, b, before)) { return true; }
    return !std::ranges::lexicographical_compare(b, a, before) && a < b;
  });
}

}  // namespace

void FolderTree::InitializeTree(std::string_view folder) {
  folder_ = folder;
  native_ = files_.resolveForReading(toUtf8(folder));
  listings_.clear();
  all_.reset();
  selected_.clear();
  if (onChanged) { onChanged(); }
}

std::string FolderTree::nativePath(const std::string& path) const { return below(native_, path); }

bool FolderTree::isShown(const std::string& fileName) const {
  if (!showsFiles_) { return false; }
  const size_t dot = fileName.find_last_of('.');
  return extension_.empty() ||
         (dot != std::string::npos && equalWithoutCase(std::string_view(fileName).substr(dot + 1), extension_));
}

// A link that leads out of the top, or round in a circle, is left out.
FolderTree::Listing FolderTree::read(const std::string& folder) const {
  Listing listing;
  std::error_code failure;
  for (fs::directory_iterator entry(nativePath(folder), failure), end; !failure && entry != end;
       entry.increment(failure)) {
    std::error_code unknown;
    const std::string name = entry->path().filename().string();
    if (name.starts_with('.')) { continue; }
    if (entry->is_directory(unknown)) {
      if (!entry->is_symlink(unknown)) { listing.folders.push_back(name); }
    } else if (isShown(name)) {
      listing.files.push_back(name);
    }
  }
  if (failure) {
    listing = {};
    listing.reason = failure.message();
  }
  sortWithoutCase(listing.folders);
  sortWithoutCase(listing.files);
  return listing;
}

const FolderTree::Listing& FolderTree::list(const std::string& folder) {
  const auto known = listings_.find(folder);
  return known != listings_.end() ? known->second : listings_.emplace(folder, read(folder)).first->second;
}

void FolderTree::gather(const std::string& folder, std::vector<std::string>& files) {
  const Listing& listing = list(folder);
  for (const std::string& name : listing.files) { files.push_back(below(folder, name)); }
  for (const std::string& name : listing.folders) { gather(below(folder, name), files); }
}

const std::vector<std::string>& FolderTree::allFiles() {
  if (!all_) { gather("", all_.emplace()); }
  return *all_;
}

namespace {

// As it is among the names, by its own spelling rather than by another case.
std::optional<std::string> spelledAs(const std::string& asked, const std::vector<std::string>& names) {
  const auto same = [&](const std::string& name) { return equalWithoutCase(name, asked); };
  const auto exact = std::ranges::find(names, asked);
  const auto found = exact != names.end() ? exact : std::ranges::find_if(names, same);
  return found == names.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

std::optional<std::string> FolderTree::find(std::string_view item) {
  std::string folder;
  const std::vector<std::string> parts = pathParts(forwardSlashes(item));
  for (size_t at = 0; at < parts.size(); ++at) {
    const Listing& listing = list(folder);
    auto found = spelledAs(parts[at], listing.folders);
    if (at + 1 == parts.size() && !found) { found = spelledAs(parts[at], listing.files); }
    if (!found) { return std::nullopt; }
    folder = below(folder, *found);
  }
  return parts.empty() ? std::nullopt : std::optional(folder);
}

void FolderTree::pick(const std::string& path) {
  const auto name = toWindows1252(path);
  if (!name) {
    throw HostFailure("\"" + messageText(path) + "\" cannot be loaded: its name holds characters beyond Windows-1252");
  }
  const bool ends = folder_.ends_with('/') || folder_.ends_with('\\');
  selected_ = folder_ + (ends ? "" : "/") + *name;
  if (selection_) { selection_(selected_, true); }
}

}  // namespace brevan
