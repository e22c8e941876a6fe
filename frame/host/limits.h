#pragma once

#include <cstddef>
#include <string>

// What module and host take for the numbers of a style, in dialogs, grids, settings files, scripts and macros alike.
namespace limits {

// Both ends belong to it.
struct WholeRange {
  int least;
  int most;

  [[nodiscard]] constexpr bool contains(double value) const { return value >= least && value <= most; }
  // "1 to 256", for messages.
  [[nodiscard]] std::string text() const { return std::to_string(least) + " to " + std::to_string(most); }
};

// The last one is no pen of its own, it stands for the layer's.
inline constexpr int kPenByLayer = 256;
inline constexpr WholeRange kPens{1, kPenByLayer};

// Where one is chosen from the list of line types: those that have a pattern.
inline constexpr WholeRange kListedLineTypes{1, 32};
// Where a number is typed, into a cell of a grid or a record: drawn continuous above those of the list.
inline constexpr WholeRange kLineTypes{1, 999};

// Tenths of a millimetre on paper.
inline constexpr WholeRange kTextSizes{1, 10000};

// The corners, sides and centre of a text's box: left, centre and right columns, each from the bottom up. Ten more
// means the same place half a character away from the text.
inline constexpr WholeRange kJustifications{1, 9};
inline constexpr WholeRange kAwayJustifications{11, 19};
constexpr bool isJustification(double value) {
  return kJustifications.contains(value) || kAwayJustifications.contains(value);
}

// Characters of a text typed at a prompt; a longer one is refused where it is typed.
inline constexpr std::size_t kLongestAnswer = 1023;

}  // namespace limits
