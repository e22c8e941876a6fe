#pragma once

#include <string_view>

namespace brevan {

// In what a drawing's areas are given: the square of a length.
struct AreaUnit {
  int code = 0;
  double millimetres = 1.0;  // the side of the square
  std::string_view name;     // Windows-1252
};

inline constexpr AreaUnit kAreaUnits[] = {{6, 1.0, "mm\xB2"}, {8, 1000.0, "m\xB2"}};

// A code that stands for nothing gives square millimetres.
constexpr AreaUnit areaUnit(int code) {
  for (const AreaUnit& unit : kAreaUnits) {
    if (unit.code == code) { return unit; }
  }
  return kAreaUnits[0];
}

}  // namespace brevan
