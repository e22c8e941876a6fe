#pragma once

#include <span>
#include <string>
#include <string_view>

#include "frame/host/limits.h"

namespace brevan {

// A line type by its number: 1 to 32 have patterns, 21 hidden edges and 4 centre lines among them; numbers
// above are drawn continuous and keep their number. 1 to 15 have the patterns and numbers of ISO 128-20.
struct LineType {
  int number = 1;
  std::string_view name;         // as exchange files call it
  std::string_view description;  // as a list shows it
  // Millimetres on paper: dash, gap, dash, gap, ...; empty for a continuous line.
  std::span<const double> pattern;
};

inline constexpr int kPatternedLineTypes = limits::kListedLineTypes.most;

const LineType& lineType(int number);

// The name by which an exchange file knows the number: its own for 1 to 32, else "LINETYPE_<number>".
std::string lineTypeName(int number);

}  // namespace brevan
