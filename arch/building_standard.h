#pragma once

#include <string>
#include <string_view>

#include "arch/spec_store.h"
#include "frame/host/window.h"

namespace ardenix::arch {

// The limits that a building regulation sets for stairs, in drawing units (millimetres in the library that
// ships).
struct StairLimits {
  double maximumRise = 200.0;
  double minimumGoing = 250.0;
  double minimumTreadWidth = 750.0;  // clear width of the flight
  double minimumNosing = 25.0;
  double minimumBalustradeSpacing = 100.0;
};

// The current building standard of the specification file.
class BuildingStandard {
 public:
  // Reads the current one; a file without it gives the limits above and no name.
  BuildingStandard(ArchSpecStore& store, CWnd* owner);

  // Makes standard `number`, counted from 1, the current one; a record that is missing changes nothing else.
  void select(int number);
  // Writes the number of the current standard and its record to the file.
  void save();
  // The record of these limits under another name.
  [[nodiscard]] std::string recordNamed(std::string_view name) const;

  // The value, or the standard's where the value falls short of it (exceeds it) and the user agrees. The
  // label says which value it is.
  [[nodiscard]] double checkMinimum(double value, double standard, std::string_view label) const;
  [[nodiscard]] double checkMaximum(double value, double standard, std::string_view label) const;

  [[nodiscard]] int number() const { return number_; }  // 0: none
  [[nodiscard]] const std::string& name() const { return name_; }
  void setName(std::string name) { name_ = std::move(name); }
  [[nodiscard]] const StairLimits& limits() const { return limits_; }
  void setLimits(const StairLimits& limits) { limits_ = limits; }

 private:
  ArchSpecStore& store_;
  CWnd* owner_;
  StairLimits limits_;
  std::string name_;
  int number_ = 0;
};

// The limits in the order of the record's fields, with what the dialog calls them.
struct StairLimitRow {
  std::string_view label;
  std::string_view toolTip;
  double StairLimits::*value;
};
inline constexpr StairLimitRow kStairLimitRows[] = {
    {"Maximum rise", "The greatest height from one tread to the next", &StairLimits::maximumRise},
    {"Minimum going", "The least depth of a tread, from nosing to nosing", &StairLimits::minimumGoing},
    {"Minimum tread width", "The least clear width of the stair", &StairLimits::minimumTreadWidth},
    {"Minimum nosing width", "The least overhang of a tread over the riser below it", &StairLimits::minimumNosing},
    {"Minimum ballustrade spacing", "The spacing of the balusters", &StairLimits::minimumBalustradeSpacing},
};

}  // namespace ardenix::arch
