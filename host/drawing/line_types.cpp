#include "host/drawing/line_types.h"

#include <array>

namespace brevan {

namespace {

constexpr size_t kLongestPattern = 12;

struct Row {
  std::string_view name;
  std::string_view description;
  std::array<double, kLongestPattern> lengths{};

  constexpr std::span<const double> pattern() const {
    size_t count = 0;
    while (count < lengths.size() && lengths[count] > 0.0) { ++count; }
    return std::span(lengths).first(count);
  }
};

// Names are those that programs know patterns by which look alike, for some read the name and not the pattern.
// ISO 128-20 gives lengths in line widths; 1 to 15 take 0.5 mm for it, 22 to 32 the half of that.
constexpr std::array<Row, kPatternedLineTypes> kRows = {{
    {"CONTINUOUS", "Continuous", {}},
    {"DASHED", "Dashed", {6, 1.5}},
    {"DASHED_SPACED", "Dashed spaced", {6, 9}},
    {"CENTER", "Long dash dot (centre lines)", {12, 1.5, 0.25, 1.5}},
    {"PHANTOM", "Long dash double dot", {12, 1.5, 0.25, 1.5, 0.25, 1.5}},
    {"LONG_DASH_3DOT", "Long dash triple dot", {12, 1.5, 0.25, 1.5, 0.25, 1.5, 0.25, 1.5}},
    {"DOT", "Dotted", {0.25, 1.5}},
    {"LONG_SHORT", "Long dash short dash", {12, 1.5, 3, 1.5}},
    {"LONG_2SHORT", "Long dash double short dash", {12, 1.5, 3, 1.5, 3, 1.5}},
    {"DASHDOT", "Dash dot", {6, 1.5, 0.25, 1.5}},
    {"BORDER", "Double dash dot", {6, 1.5, 6, 1.5, 0.25, 1.5}},
    {"DIVIDE", "Dash double dot", {6, 1.5, 0.25, 1.5, 0.25, 1.5}},
    {"2DASH_2DOT", "Double dash double dot", {6, 1.5, 6, 1.5, 0.25, 1.5, 0.25, 1.5}},
    {"DASH_3DOT", "Dash triple dot", {6, 1.5, 0.25, 1.5, 0.25, 1.5, 0.25, 1.5}},
    {"2DASH_3DOT", "Double dash triple dot", {6, 1.5, 6, 1.5, 0.25, 1.5, 0.25, 1.5, 0.25, 1.5}},
    {"SHORT_DASHES", "Short dashes", {1.5, 1.5}},
    {"DASHEDX2", "Long dashes", {12, 3}},
    {"DASHES_CLOSE", "Dashes, closely set", {4, 0.5}},
    {"DOTX2", "Dots, widely set", {0.25, 3}},
    {"DOTS_CLOSE", "Dots, closely set", {0.25, 0.5}},
    {"DASHED2", "Dashed (hidden edges)", {3, 1.5}},
    {"CENTER2", "Long dash dot, fine", {6, 0.75, 0.25, 0.75}},
    {"PHANTOM2", "Long dash double dot, fine", {6, 0.75, 0.25, 0.75, 0.25, 0.75}},
    {"LONG_DASH_3DOT_FINE", "Long dash triple dot, fine", {6, 0.75, 0.25, 0.75, 0.25, 0.75, 0.25, 0.75}},
    {"DASHED_FINE", "Dashed, fine", {3, 0.75}},
    {"DASHED_SPACED_FINE", "Dashed spaced, fine", {3, 4.5}},
    {"DOT2", "Dotted, fine", {0.25, 0.75}},
    {"LONG_SHORT_FINE", "Long dash short dash, fine", {6, 0.75, 1.5, 0.75}},
    {"LONG_2SHORT_FINE", "Long dash double short dash, fine", {6, 0.75, 1.5, 0.75, 1.5, 0.75}},
    {"DASHDOT2", "Dash dot, fine", {3, 0.75, 0.25, 0.75}},
    {"DIVIDE2", "Dash double dot, fine", {3, 0.75, 0.25, 0.75, 0.25, 0.75}},
    {"BORDER2", "Double dash dot, fine", {3, 0.75, 3, 0.75, 0.25, 0.75}},
}};

constexpr std::array<LineType, kPatternedLineTypes> numberedRows() {
  std::array<LineType, kPatternedLineTypes> types{};
  for (size_t row = 0; row < kRows.size(); ++row) {
    types[row] = {static_cast<int>(row) + 1, kRows[row].name, kRows[row].description, kRows[row].pattern()};
  }
  return types;
}

constexpr std::array<LineType, kPatternedLineTypes> kLineTypes = numberedRows();

}  // namespace

const LineType& lineType(int number) {
  const bool patterned = number >= 1 && number <= kPatternedLineTypes;
  return kLineTypes[patterned ? static_cast<size_t>(number) - 1 : 0];
}

std::string lineTypeName(int number) {
  if (number >= 1 && number <= kPatternedLineTypes) { return std::string(lineType(number).name); }
  return "LINETYPE_" + std::to_string(number);
}

}  // namespace brevan
