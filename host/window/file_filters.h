#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brevan {

// One choice of what a file chooser lists.
struct FileFilter {
  std::string description;            // without blanks around it: "Comma delimited (*.csv)"
  std::vector<std::string> patterns;  // "*.csv"

  // The description without what stands in brackets at its end.
  [[nodiscard]] std::string name() const;
  [[nodiscard]] bool lists(std::string_view path) const;
};

// Reads filters written as "Description|*.a;*.b|Description|*.c||".
std::vector<FileFilter> fileFilters(std::string_view text);
// The first that lists a path; the first of all where none does.
size_t filterListing(const std::vector<FileFilter>& filters, std::string_view path);
// By description or name, whatever the case.
std::optional<size_t> filterNamed(const std::vector<FileFilter>& filters, std::string_view wanted);

}  // namespace brevan
