#include "survey/sectional/section_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/text_row.h"

namespace ardenix::survey {

namespace {

constexpr char kComma = ',';
constexpr std::ptrdiff_t kCommas = 4;

// A quota beyond it is a damaged line, and would spoil the sum.
constexpr double kLargestQuota = 1e6;

// Closes a text file, also where reading it fails.
class OpenFile {
 public:
  OpenFile(const std::string& path, std::string_view mode) : handle_(coreFileOpen(path, mode)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (handle_ != 0) { coreFileClose(handle_); }
  }
  [[nodiscard]] int handle() const { return handle_; }
  // Where what was written reaches the disk, and may fail to.
  void close() { coreFileClose(std::exchange(handle_, 0)); }

 private:
  int handle_;
};

std::string lineOf(const SectionRow& row, bool part) {
  const Section& first = row.first();
  const std::string building = first.building == 0 ? "" : std::to_string(first.building);
  return numberText::format("%s%d,%s,%s,%d,%s", part ? "-" : "", row.number(), std::string_view(building),
                            std::string_view(first.unit), row.area, std::string_view(writtenQuota(row.quota)));
}

}  // namespace

std::optional<Section> sectionOfLine(const std::string& line) {
  if (std::ranges::count(line, kComma) != kCommas) { return std::nullopt; }
  const auto whole = [&line](int field) { return coreGetFieldInt(line, 0, field, kComma); };
  std::array<std::string, kCommas + 1> fields;
  splitFields(line, fields);
  coreTrimStr(fields[2]);
  coreTrimStr(fields[4]);
  if (!fields[4].empty() && coreIsNumeric(fields[4]) == 0) { return std::nullopt; }
  Section section{.number = whole(1),
                  .building = whole(2),
                  .area = whole(4),
                  .unit = fields[2].substr(0, kLongestUnit),
                  .fixedQuota = coreGetFieldDouble(line, 0.0, 5, kComma)};
  const bool kept = section.number != 0 && section.number != std::numeric_limits<int>::min() && section.building >= 0 &&
                    section.area >= 1 && std::fabs(section.fixedQuota) <= kLargestQuota;
  return kept ? std::optional(std::move(section)) : std::nullopt;
}

LoadedSections loadSections(const std::string& path, size_t present) {
  const OpenFile file(path, "r");
  if (file.handle() == 0) { throw HostFailure(numberText::format("%s cannot be read.", path)); }
  LoadedSections loaded;
  std::string line;
  while (coreFileTxtRead(file.handle(), line) != 0) {
    std::optional<Section> section = sectionOfLine(line);
    if (!section) {
      loaded.skipped += line.empty() ? 0 : 1;
      continue;
    }
    if (present + loaded.sections.size() == kMostSections) {
      throw HostFailure(numberText::format("%s holds too many sections: a scheme may have %d.", path, kMostSections));
    }
    loaded.sections.push_back(std::move(*section));
  }
  return loaded;
}

void saveSections(const std::string& path, const std::vector<SectionRow>& rows, PartView view) {
  const auto failure = [&path] { return HostFailure(numberText::format("%s cannot be written.", path)); };
  OpenFile file(path, "w");
  if (file.handle() == 0) { throw failure(); }
  for (const SectionRow& row : rows) {
    const bool part = view == PartView::kExpanded && row.first().isPart();
    if (coreFileTxtWrite(file.handle(), lineOf(row, part)) == 0) { throw failure(); }
  }
  file.close();
}

}  // namespace ardenix::survey
