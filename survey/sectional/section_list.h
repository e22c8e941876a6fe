#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "survey/sectional/section.h"

namespace ardenix::survey {

// The sections of a scheme in ascending order of their numbers without sign, the newer of equal numbers first, and the
// outlines of those that were traced, in the order of tracing. An outline goes with its section.
class SectionList {
 public:
  [[nodiscard]] const std::vector<Section>& sections() const { return sections_; }
  [[nodiscard]] const std::vector<SectionOutline>& outlines() const { return outlines_; }
  // Another number after every change of the sections.
  [[nodiscard]] long long revision() const { return revision_; }
  [[nodiscard]] bool empty() const { return sections_.empty(); }
  // All of a number, the newest first.
  [[nodiscard]] std::span<const Section> numbered(int plainNumber) const;
  // Null where there is none.
  [[nodiscard]] const Section* find(long long id) const;

  // Returns the id that it gets.
  long long add(Section section);
  // The same for many at once, the last one being the newest.
  void add(std::vector<Section> sections);
  // What it says in place of what the section of its id said.
  void replace(const Section& section);
  void remove(std::vector<long long> ids);
  void clear();

  void addOutline(SectionOutline outline) { outlines_.push_back(std::move(outline)); }

 private:
  // Where the section of an id stands, or would stand with a number.
  [[nodiscard]] size_t placeOf(int plainNumber, long long id) const;

  std::vector<Section> sections_;
  std::unordered_map<long long, int> numbers_;  // without sign, by id
  std::vector<SectionOutline> outlines_;
  long long lastId_ = 0;
  long long revision_ = 0;
};

}  // namespace ardenix::survey
