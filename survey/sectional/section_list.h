#pragma once

#include <optional>
#include <vector>

#include "survey/sectional/section.h"

namespace ardenix::survey {

// The sections of a scheme in ascending order of their numbers without sign, the newer of equal numbers first, and the
// outlines of those that were traced, in the order of tracing. An outline goes with its section.
class SectionList {
 public:
  [[nodiscard]] const std::vector<Section>& sections() const { return sections_; }
  [[nodiscard]] const std::vector<SectionOutline>& outlines() const { return outlines_; }
  [[nodiscard]] bool empty() const { return sections_.empty(); }
  // The newest of a number; null where there is none.
  [[nodiscard]] const Section* first(int plainNumber) const;
  [[nodiscard]] const Section* find(long long id) const;

  // Returns the id that it gets.
  long long add(Section section);
  // The same for many at once, the last one being the newest.
  void add(std::vector<Section> sections);
  // What it says in place of what the section of its id said; it moves only where its number does.
  void replace(const Section& section);
  void remove(long long id);
  void clear();

  void addOutline(SectionOutline outline) { outlines_.push_back(std::move(outline)); }

 private:
  std::vector<Section> sections_;
  std::vector<SectionOutline> outlines_;
  long long lastId_ = 0;
};

}  // namespace ardenix::survey
