#include "survey/sectional/section_list.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace ardenix::survey {

namespace {

constexpr auto kPlainNumber = [](const Section& section) { return section.plainNumber(); };
constexpr auto kOrder = [](const Section& section) { return std::pair(section.plainNumber(), -section.id); };

}  // namespace

std::span<const Section> SectionList::numbered(int plainNumber) const {
  const auto first = std::ranges::lower_bound(sections_, plainNumber, {}, kPlainNumber);
  const auto last = std::ranges::upper_bound(sections_, plainNumber, {}, kPlainNumber);
  return {first, last};
}

size_t SectionList::placeOf(int plainNumber, long long id) const {
  const auto place = std::ranges::lower_bound(sections_, std::pair(plainNumber, -id), {}, kOrder);
  return static_cast<size_t>(place - sections_.begin());
}

const Section* SectionList::find(long long id) const {
  const auto number = numbers_.find(id);
  return number != numbers_.end() ? &sections_[placeOf(number->second, id)] : nullptr;
}

long long SectionList::add(Section section) {
  ++revision_;
  section.id = ++lastId_;
  const int number = section.plainNumber();
  const auto before = static_cast<std::ptrdiff_t>(placeOf(number, lastId_));
  sections_.insert(sections_.begin() + before, std::move(section));
  numbers_[lastId_] = number;
  return lastId_;
}

void SectionList::add(std::vector<Section> sections) {
  ++revision_;
  for (Section& section : sections) {
    section.id = ++lastId_;
    numbers_[lastId_] = section.plainNumber();
  }
  sections_.insert(sections_.end(), std::make_move_iterator(sections.begin()), std::make_move_iterator(sections.end()));
  std::ranges::sort(sections_, {}, kOrder);
}

void SectionList::replace(const Section& section) {
  const auto number = numbers_.find(section.id);
  if (number == numbers_.end()) { return; }
  ++revision_;
  const size_t place = placeOf(number->second, section.id);
  if (number->second == section.plainNumber()) {
    sections_[place] = section;
    return;
  }
  number->second = section.plainNumber();
  sections_.erase(sections_.begin() + static_cast<std::ptrdiff_t>(place));
  const auto before = static_cast<std::ptrdiff_t>(placeOf(section.plainNumber(), section.id));
  sections_.insert(sections_.begin() + before, section);
}

void SectionList::remove(std::vector<long long> ids) {
  ++revision_;
  std::ranges::sort(ids);
  const auto goes = [&ids](long long id) { return std::ranges::binary_search(ids, id); };
  std::erase_if(sections_, [&](const Section& section) { return goes(section.id); });
  std::erase_if(outlines_, [&](const SectionOutline& outline) { return goes(outline.section); });
  for (const long long id : ids) { numbers_.erase(id); }
}

void SectionList::clear() {
  ++revision_;
  sections_.clear();
  numbers_.clear();
  outlines_.clear();
}

}  // namespace ardenix::survey
