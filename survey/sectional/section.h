#pragma once

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "frame/drafting/point.h"

namespace ardenix::survey {

// A section of a sectional title scheme, or one of the parts of a section.
struct Section {
  long long id = 0;     // given by the list, never twice
  int number = 0;       // below 0: a part of the section of this number without its sign
  int floor = 0;        // index into the names of the floors
  int building = 0;     // 0: none given
  int area = 0;         // square metres
  std::string unit{};   // the unit's number, perhaps none
  double fixedQuota{};  // in percent; 0: the quota follows the floor area

  [[nodiscard]] bool isPart() const { return number < 0; }
  [[nodiscard]] bool hasFixedQuota() const { return std::fabs(fixedQuota) > 1e-12; }
  [[nodiscard]] int plainNumber() const { return std::abs(number); }
};

inline constexpr int kLongestUnit = 9;
inline constexpr int kLargestNumber = 10'000;      // of sections and buildings
inline constexpr int kLargestFloorArea = 100'000;  // square metres

// Where a section runs, as it was traced; the first point stands again at the end.
struct SectionOutline {
  long long section = 0;  // its id
  std::vector<Point> points;
};

// A part of the common property that one owner alone uses, as it was traced.
struct ExclusiveArea {
  std::string letters{};
  int floor = 0;  // index into the names of the floors
  int area = 0;   // square metres
  std::vector<Point> points{};
};

}  // namespace ardenix::survey
