#pragma once

#include <array>
#include <string>
#include <string_view>

namespace ardenix::mech {

// No symbol, where the number of one is kept.
inline constexpr int kNoToleranceSymbol = -1;

// The name of a symbol of the tolerance file by its number; "" for a number that has none.
std::string_view toleranceSymbol(int number);

// Whether the host would break a text there; those of a frame and of a datum have one line.
inline bool breaksLine(std::string_view text) {
  return text.find("\\N") != std::string_view::npos || text.find("\\n") != std::string_view::npos;
}

// A compartment of a tolerance frame: a tolerance or a datum.
struct ToleranceCell {
  bool diameter = false;  // of tolerances: the sign before the value
  std::string value;
  int modifier = kNoToleranceSymbol;
};

// What a tolerance frame says.
struct ToleranceFrame {
  int characteristic = kNoToleranceSymbol;
  std::array<ToleranceCell, 5> cells;  // two tolerances, then three datums
  bool projected = false;              // the tolerance zone stands above the surface
  std::string height;                  // of that zone
  std::string identifier;              // of the datum that the frame sets
};

}  // namespace ardenix::mech
