#include "host/window/file_filters.h"

#include <algorithm>

#include "host/core/text_encoding.h"

namespace brevan {

namespace {

std::vector<std::string> splitAt(char mark, std::string_view text) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const size_t end = std::min(text.find(mark), text.size());
    if (end > 0) { parts.emplace_back(trimmed(text.substr(0, end))); }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parts;
}

bool matches(std::string_view pattern, std::string_view path) {
  if (pattern == "*" || pattern == "*.*") { return true; }
  if (!pattern.starts_with('*')) { return false; }
  const std::string_view ending = pattern.substr(1);
  return path.size() > ending.size() && equalWithoutCase(path.substr(path.size() - ending.size()), ending);
}

}  // namespace

std::string FileFilter::name() const {
  return std::string(trimmed(std::string_view(description).substr(0, description.find('('))));
}

bool FileFilter::lists(std::string_view path) const {
  return std::ranges::any_of(patterns, [path](const std::string& pattern) { return matches(pattern, path); });
}

std::vector<FileFilter> fileFilters(std::string_view text) {
  const std::vector<std::string> parts = splitAt('|', text);
  std::vector<FileFilter> filters;
  for (size_t part = 0; part + 1 < parts.size(); part += 2) {
    filters.push_back({parts[part], splitAt(';', parts[part + 1])});
  }
  return filters;
}

size_t filterListing(const std::vector<FileFilter>& filters, std::string_view path) {
  const auto found = std::ranges::find_if(filters, [path](const FileFilter& filter) { return filter.lists(path); });
  return found == filters.end() ? 0 : static_cast<size_t>(found - filters.begin());
}

std::optional<size_t> filterNamed(const std::vector<FileFilter>& filters, std::string_view wanted) {
  const std::string_view text = trimmed(wanted);
  for (size_t i = 0; i < filters.size(); ++i) {
    const bool named = !text.empty() && equalWithoutCase(filters[i].name(), text);
    if (named || equalWithoutCase(filters[i].description, text)) { return i; }
  }
  return std::nullopt;
}

}  // namespace brevan
