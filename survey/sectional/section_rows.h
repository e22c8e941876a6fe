#pragma once

#include <span>
#include <string>
#include <vector>

#include "survey/sectional/quotas.h"

namespace ardenix::survey {

// Whether the parts of a section stand a row each or together.
enum class PartView { kCollapsed, kExpanded };

// What a row of a schedule stands for: a whole section, a part, or parts of one section that follow each other. It
// lives as long as the list is not changed.
struct SectionRow {
  std::span<const Section> sections;
  long long area = 0;
  Quota quota = 0;

  [[nodiscard]] const Section& first() const { return sections.front(); }
  [[nodiscard]] int number() const { return first().plainNumber(); }
};

std::vector<SectionRow> sectionRows(const SectionList& list, PartView view, const Quotas& quotas);

// "5", "5 (Part of)" or, of parts together, "5 (2 parts)".
std::string shownNumber(const SectionRow& row, PartView view);

// "1", "1 and 2", "1, 2 and 5".
std::string listed(std::span<const int> numbers);

}  // namespace ardenix::survey
