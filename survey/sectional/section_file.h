#pragma once

#include <optional>
#include <string>
#include <vector>

#include "survey/sectional/section_rows.h"

// Lists of sections as comma-separated text: section, building, unit, floor area and participation quota in each
// line, the number of a part below 0.
namespace ardenix::survey {

inline constexpr size_t kMostSections = 100'000;

struct LoadedSections {
  std::vector<Section> sections;
  size_t skipped = 0;  // lines that are no section
};

// Nothing for a line that is no section.
std::optional<Section> sectionOfLine(const std::string& line);

// Throws HostFailure for a file that cannot be read or holds more sections than a scheme of so many may take in.
LoadedSections loadSections(const std::string& path, size_t present);

// A row a line, as it is shown: parts together are saved as a whole section. Throws HostFailure where the file cannot
// be written.
void saveSections(const std::string& path, const std::vector<SectionRow>& rows, PartView view);

}  // namespace ardenix::survey
