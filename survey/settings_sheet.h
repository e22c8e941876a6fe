#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/ini.h"
#include "survey/settings_keys.h"
#include "survey/survey_mode.h"

namespace ardenix::survey {

// What a column of a sheet holds.
enum class Entry { kText, kName, kMillimetres, kSize, kJustification, kPen, kLinetype, kFont, kFlag };

struct SheetColumn {
  std::string_view title;
  Entry entry;
  int width;  // pixels
};

// How the cells of a row make up a settings value.
enum class RecordForm {
  kTextRow,  // eight fields, the commas of the first hidden; missing or empty reads as kDefaultTextRow
  kFields,   // the cells between commas
  kWhole,    // one cell, the value as it is
};

// Rows of a sheet that are kept alike: one for each key, or under numbered keys until the first missing.
struct RowBlock {
  std::string_view section;
  std::span<const KeyRow> keys{};
  std::string_view numberedKey{};  // "Line%d"
  int most = 0;                    // numbered rows
  std::string_view heading{};      // of numbered rows, "Line %d"
  bool removable = false;

  [[nodiscard]] int count() const { return keys.empty() ? most : static_cast<int>(keys.size()); }
  [[nodiscard]] std::string key(int row) const;
};

struct SheetForm {
  std::string_view caption;
  std::span<const SheetColumn> columns;
  RecordForm record = RecordForm::kFields;
  std::vector<RowBlock> blocks{};
  // Two keys that hold a column each, behind an empty first field; the rows bear these headings.
  bool columnsAreRecords = false;
};

// Throws HostFailure with file, section, key, field and range for the first row of a settings file that nothing can be
// drawn with; rows of size 0 are not drawn.
void checkSheets(const TINIFile& file, SurveyMode mode);

// The sheets of a mode's settings, in order.
std::vector<SheetForm> sheetForms(SurveyMode mode);

// In cells that stands for kNextLine.
inline constexpr std::string_view kLineFeed = "LF";

// One sheet as the dialog shows it: texts in rows and columns. What a file holds beyond them it keeps, and a row
// that nobody changed keeps its bytes.
class SettingsSheet {
 public:
  using Row = std::vector<std::string>;

  explicit SettingsSheet(SheetForm form);

  [[nodiscard]] const SheetForm& form() const { return form_; }
  [[nodiscard]] const std::vector<Row>& rows() const { return rows_; }
  [[nodiscard]] std::string heading(int row) const;
  // Why a column does not take a text; the text as it is kept where it does.
  [[nodiscard]] std::optional<std::string> refusal(int column, std::string& text) const;
  // The text must be taken. The first text of an additional row brings the defaults of the other columns.
  void set(int row, int column, std::string text);

  [[nodiscard]] bool removable(int row) const;
  // The rows below move up.
  void remove(int row);

  void load(const TINIFile& file);
  // Throws HostFailure for a loaded cell that nothing can be drawn with.
  void check(const TINIFile& file) const;
  // Rows in the middle of a list that are empty are closed up.
  void save(TINIFile& file) const;

 private:
  [[nodiscard]] std::string asKept(int column, std::string text) const;
  [[nodiscard]] Row emptyRow() const { return Row(form_.columns.size()); }
  [[nodiscard]] Row cellsOf(std::string_view value) const;
  [[nodiscard]] std::string valueOf(const Row& row) const;
  [[nodiscard]] bool leftOut(const Row& row) const;
  void checkRow(const TINIFile& file, const RowBlock& block, const Row& row, int number) const;
  void checkColumns(const TINIFile& file) const;
  void checkCell(const TINIFile& file, std::string_view section, std::string_view key, size_t column,
                 const std::string& cell) const;
  void loadBlock(const TINIFile& file, const RowBlock& block, int first);
  void saveBlock(TINIFile& file, const RowBlock& block, int first) const;
  void saveRow(TINIFile& file, const RowBlock& block, const Row& row, int number) const;
  void loadColumns(const TINIFile& file);
  void saveColumns(TINIFile& file) const;
  [[nodiscard]] Row column(size_t index) const;

  SheetForm form_;
  std::vector<Row> rows_;
};

}  // namespace ardenix::survey
