#include "survey/sectional/section_rows.h"

#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

// How many of the sections a row takes.
size_t rowLength(std::span<const Section> sections, PartView view) {
  if (view == PartView::kExpanded || !sections.front().isPart()) { return 1; }
  size_t length = 1;
  while (length < sections.size() && sections[length].number == sections.front().number) { ++length; }
  return length;
}

}  // namespace

std::vector<SectionRow> sectionRows(const SectionList& list, PartView view, const Quotas& quotas) {
  std::vector<SectionRow> rows;
  rows.reserve(list.sections().size());
  for (std::span<const Section> rest = list.sections(); !rest.empty();) {
    SectionRow row{.sections = rest.first(rowLength(rest, view))};
    for (const Section& section : row.sections) {
      row.area += section.area;
      row.quota += quotas.of(section);
    }
    rows.push_back(row);
    rest = rest.subspan(row.sections.size());
  }
  return rows;
}

std::string shownNumber(const SectionRow& row, PartView view) {
  if (!row.first().isPart()) { return std::to_string(row.number()); }
  if (view == PartView::kExpanded) { return numberText::format("%d (Part of)", row.number()); }
  return numberText::format("%d (%d parts)", row.number(), row.sections.size());
}

std::string listed(std::span<const int> numbers) {
  std::string text;
  for (size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0) { text += i + 1 == numbers.size() ? " and " : ", "; }
    text += std::to_string(numbers[i]);
  }
  return text;
}

}  // namespace ardenix::survey
