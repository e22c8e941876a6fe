#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "frame/host/ini.h"

#include "survey/survey_mode.h"

// What a settings file holds beside its options, as the rows of the setup dialog show it.
namespace ardenix::survey {

// A key of a settings file, the heading of its row, and of texts that a command asks for how it asks.
struct KeyRow {
  std::string_view key;
  std::string_view label;
  std::string_view prompt{};
  int most = 1;           // answers, a line below each other; a blank one ends them
  bool belowTop = false;  // on the next line means below the sheet's top edge, not below the text before
};

// The value of a key, which may be empty; nothing where the key is missing.
std::optional<std::string> storedValue(const TINIFile& file, std::string_view section, std::string_view key);

// Template drawings: symbol file and title block in section "DEFAULTS", or the four sheets of a sectional plan in
// "TEMPLATES".
inline constexpr std::string_view kTemplateSection = "TEMPLATES";
std::string_view templateSection(SurveyMode mode);
std::span<const KeyRow> templateRows(SurveyMode mode);

// A sheet of text rows: one key a row.
struct TextSheet {
  std::string_view caption;
  std::string_view section;
  std::span<const KeyRow> rows;
};

// The two sheets of text rows of a mode: what is asked, and what is drawn beside it.
std::span<const TextSheet> textSheets(SurveyMode mode);

inline constexpr std::string_view kDiagramTextSection = "TEXT";
// Place and style of the data table; where it is empty among the texts, it is read from kDataSection.
inline constexpr std::string_view kDataTableKey = "Data";

// Additional texts of a diagram follow its fixed ones under "AddText1" and on.
inline constexpr int kMostTextRows = 100;
inline constexpr std::string_view kAdditionalText = "AddText%d";

inline constexpr std::string_view kLineSection = "LINES";
inline constexpr std::string_view kLineKey = "Line%d";
inline constexpr int kMostLines = 100;

// Positions and justifications of the columns of a diagram's data table.
inline constexpr std::string_view kDataSection = "DATA";
inline constexpr std::string_view kDataKeys[] = {"Figure1", "Figure2"};
std::span<const std::string_view> dataColumns();

inline constexpr std::string_view kTableSection = "TABLES";
std::span<const KeyRow> tableRows();

inline constexpr std::string_view kExtentSection = "EXTENTS";
std::span<const KeyRow> extentRows();

inline constexpr std::string_view kFloorSection = "FLOORNAMES";
inline constexpr std::string_view kFloorKey = "FloorName%d";
inline constexpr int kMostFloors = 100;

}  // namespace ardenix::survey
