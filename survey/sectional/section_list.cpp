#include "survey/sectional/section_list.h"

#include <algorithm>
#include <iterator>

namespace ardenix::survey {

namespace {

constexpr auto kPlainNumber = [](const Section& section) { return section.plainNumber(); };

}  // namespace

const Section* SectionList::first(int plainNumber) const {
  const auto found = std::ranges::lower_bound(sections_, plainNumber, {}, kPlainNumber);
  return found != sections_.end() && found->plainNumber() == plainNumber ? &*found : nullptr;
}

const Section* SectionList::find(long long id) const {
  const auto found = std::ranges::find(sections_, id, &Section::id);
  return found != sections_.end() ? &*found : nullptr;
}

long long SectionList::add(Section section) {
  section.id = ++lastId_;
  const auto before = std::ranges::lower_bound(sections_, section.plainNumber(), {}, kPlainNumber);
  sections_.insert(before, std::move(section));
  return lastId_;
}

void SectionList::add(std::vector<Section> sections) {
  for (Section& section : sections) { section.id = ++lastId_; }
  std::ranges::reverse(sections);
  std::ranges::move(sections_, std::back_inserter(sections));
  std::ranges::stable_sort(sections, {}, kPlainNumber);
  sections_ = std::move(sections);
}

void SectionList::replace(const Section& section) {
  const auto found = std::ranges::find(sections_, section.id, &Section::id);
  if (found == sections_.end()) { return; }
  if (found->plainNumber() == section.plainNumber()) {
    *found = section;
    return;
  }
  sections_.erase(found);
  sections_.insert(std::ranges::lower_bound(sections_, section.plainNumber(), {}, kPlainNumber), section);
}

void SectionList::remove(long long id) {
  std::erase_if(sections_, [id](const Section& section) { return section.id == id; });
  std::erase_if(outlines_, [id](const SectionOutline& outline) { return outline.section == id; });
}

void SectionList::clear() {
  sections_.clear();
  outlines_.clear();
}

}  // namespace ardenix::survey
