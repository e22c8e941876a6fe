#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace ardenix::survey {

// In place of a vertical position: on the next line. In a frame line: the end of the data table.
inline constexpr double kNextLine = 9999.0;

// What a row that is missing or empty reads as.
inline constexpr std::string_view kDefaultTextRow = "Default,0,0,8,30,2,Arial,0";

// Where and how one text of a sheet is drawn, and what is offered for it.
struct TextRow {
  std::string text;         // commas restored
  double horizontal = 0.0;  // millimetres on paper from the sheet's origin
  double vertical = 0.0;    // likewise, or kNextLine
  int pen = 1;
  int size = 1;  // tenths of a millimetre on paper; 0: neither asked nor drawn
  int justification = 1;
  std::string font = "Arial";
  bool underlined = false;
};

// The row of a settings value. Fields that are missing keep the defaults above.
TextRow textRowOf(std::string_view value);

// A line of the frame, in millimetres on paper from the sheet's origin. A vertical position of kNextLine means
// the end of the data table.
struct LineRow {
  double startHorizontal = 0.0;
  double startVertical = 0.0;
  double endHorizontal = 0.0;
  double endVertical = 0.0;
  int pen = 1;
  int linetype = 1;
};

LineRow lineRowOf(std::string_view value);

// The fields of a record between its commas; those that are missing are empty, those beyond the last are cut.
void splitFields(std::string_view record, std::span<std::string> fields);
std::string joinedFields(std::span<const std::string> fields);

}  // namespace ardenix::survey
