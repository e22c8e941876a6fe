#include "survey/settings_sheet.h"

#include <algorithm>
#include <cmath>

#include "frame/host/core_services.h"
#include "frame/host/limits.h"
#include "frame/host/number_text.h"
#include "frame/records.h"
#include "survey/text_row.h"

namespace ardenix::survey {

namespace {

constexpr std::string_view kStoredLineFeed = "9999";
constexpr size_t kSizeCell = 4;
constexpr size_t kUnderlineCell = 7;

std::string shownCell(const std::string& text) { return text == kStoredLineFeed ? std::string(kLineFeed) : text; }
std::string storedCell(const std::string& text) { return text == kLineFeed ? std::string(kStoredLineFeed) : text; }

bool isEmpty(const SettingsSheet::Row& row) {
  return std::ranges::all_of(row, [](const std::string& cell) { return cell.empty(); });
}

// What a column of numbers takes; nothing for one of texts.
struct Numbers {
  std::string range;  // in words
  bool (*take)(double value);
  bool whole = true;
};

std::optional<Numbers> numbersOf(Entry entry) {
  using namespace limits;
  switch (entry) {
    case Entry::kMillimetres:
      return Numbers{"-10000 to 10000", [](double value) { return std::fabs(value) <= 10000.0; }, false};
    case Entry::kSize:
      return Numbers{"0 to " + std::to_string(kTextSizes.most),
                     [](double value) { return value == 0.0 || kTextSizes.contains(value); }};
    case Entry::kJustification:
      return Numbers{kJustifications.text() + " or " + kAwayJustifications.text(),
                     [](double value) { return isJustification(value); }};
    case Entry::kPen: return Numbers{kPens.text(), [](double value) { return kPens.contains(value); }};
    case Entry::kLinetype: return Numbers{kLineTypes.text(), [](double value) { return kLineTypes.contains(value); }};
    case Entry::kText:
    case Entry::kName:
    case Entry::kFont:
    case Entry::kFlag: break;
  }
  return std::nullopt;
}

// The number that a text is, if the column takes it.
std::optional<double> numberTaken(const Numbers& numbers, const std::string& text) {
  const auto value = numberText::parseTyped(text);
  const bool taken = value && numbers.take(*value) && (!numbers.whole || *value == std::floor(*value));
  return taken ? value : std::nullopt;
}

}  // namespace

std::string RowBlock::key(int row) const {
  return keys.empty() ? numberText::format(numberedKey, row + 1) : std::string(keys[static_cast<size_t>(row)].key);
}

SettingsSheet::SettingsSheet(SheetForm form) : form_(std::move(form)) {
  size_t count = form_.columnsAreRecords ? dataColumns().size() : 0;
  for (const RowBlock& block : form_.blocks) { count += static_cast<size_t>(block.count()); }
  rows_.assign(count, emptyRow());
}

std::string SettingsSheet::heading(int row) const {
  if (form_.columnsAreRecords) { return std::string(dataColumns()[static_cast<size_t>(row)]); }
  for (const RowBlock& block : form_.blocks) {
    if (row >= block.count()) {
      row -= block.count();
    } else if (block.keys.empty()) {
      return numberText::format(block.heading, row + 1);
    } else {
      return std::string(block.keys[static_cast<size_t>(row)].label);
    }
  }
  return {};
}

// ---- Editing ----------------------------------------------------------------------------------------------------

std::optional<std::string> SettingsSheet::refusal(int column, std::string& text) const {
  const SheetColumn& described = form_.columns[static_cast<size_t>(column)];
  text = asKept(column, std::move(text));
  if (text.empty() || text == kLineFeed || described.entry == Entry::kText) { return std::nullopt; }
  if (const auto numbers = numbersOf(described.entry)) {
    const auto value = numberTaken(*numbers, text);
    if (!value) {
      return numberText::format("\"%s\" takes a %snumber from %s or LF, got \"%s\".", described.title,
                                numbers->whole ? "whole " : "", numbers->range, text);
    }
    if (text.find_first_not_of("-.0123456789") != std::string::npos) { text = numberText::shortest(*value); }
  } else if (text.find(',') != std::string::npos) {
    return numberText::format("\"%s\" cannot hold a comma, got \"%s\".", described.title, text);
  }
  return std::nullopt;
}

// As it will be read again: a file keeps no blanks at a value's ends, and has one way to say a line feed or a comma.
std::string SettingsSheet::asKept(int column, std::string text) const {
  if (form_.columns[static_cast<size_t>(column)].entry != Entry::kText || form_.record == RecordForm::kWhole) {
    coreTrimStr(text);
  } else {
    text.erase(0, text.find_first_not_of(" \t"));
    text = commasRestored(text);
  }
  return text == "lf" || text == kStoredLineFeed ? std::string(kLineFeed) : text;
}

void SettingsSheet::set(int row, int column, std::string text) {
  Row& cells = rows_[static_cast<size_t>(row)];
  const bool begun = column == 0 && !text.empty() && cells.front().empty() && removable(row);
  cells[static_cast<size_t>(column)] = std::move(text);
  if (!begun || form_.record != RecordForm::kTextRow) { return; }
  const Row usual = cellsOf(kDefaultTextRow);
  for (size_t i = 0; i < cells.size(); ++i) {
    if (cells[i].empty()) { cells[i] = usual[i]; }
  }
}

bool SettingsSheet::removable(int row) const {
  for (const RowBlock& block : form_.blocks) {
    if (row < block.count()) { return block.removable; }
    row -= block.count();
  }
  return false;
}

void SettingsSheet::remove(int row) {
  rows_.erase(rows_.begin() + row);
  rows_.push_back(emptyRow());  // rows that can be removed are the last ones
}

// ---- Records ----------------------------------------------------------------------------------------------------

SettingsSheet::Row SettingsSheet::cellsOf(std::string_view value) const {
  Row cells = emptyRow();
  if (form_.record == RecordForm::kWhole) {
    cells[0] = value;
  } else {
    splitFields(value, cells);
  }
  for (std::string& cell : cells) { cell = shownCell(cell); }
  if (form_.record == RecordForm::kTextRow) {
    cells[0] = commasRestored(cells[0]);
    cells[kUnderlineCell] = textRowOf(value).underlined ? "1" : "0";
  }
  return cells;
}

std::string SettingsSheet::valueOf(const Row& row) const {
  Row cells;
  for (const std::string& cell : row) { cells.push_back(storedCell(cell)); }
  if (form_.record == RecordForm::kTextRow) {
    cells[0] = commasHidden(cells[0]);
    if (cells[kUnderlineCell] != "1") { cells[kUnderlineCell] = "0"; }
  }
  return joinedFields(cells);
}

// Numbered texts and names are nothing without a text, lines when they are empty.
bool SettingsSheet::leftOut(const Row& row) const {
  return form_.record == RecordForm::kFields ? isEmpty(row) : row.front().empty();
}

// ---- Loading ----------------------------------------------------------------------------------------------------

namespace {

// A row of a text sheet; the place of the data table may stand beside the table's columns.
std::optional<std::string> storedRow(const TINIFile& file, std::string_view section, std::string_view key) {
  std::optional<std::string> value = storedValue(file, section, key);
  if (key == kDataTableKey && section == kDiagramTextSection && value.value_or("").empty()) {
    return storedValue(file, kDataSection, key);
  }
  return value;
}

}  // namespace

void SettingsSheet::load(const TINIFile& file) {
  rows_.assign(rows_.size(), emptyRow());
  int first = 0;
  for (const RowBlock& block : form_.blocks) {
    loadBlock(file, block, first);
    first += block.count();
  }
  if (form_.columnsAreRecords) { loadColumns(file); }
}

void SettingsSheet::loadBlock(const TINIFile& file, const RowBlock& block, int first) {
  for (int row = 0; row < block.count(); ++row) {
    std::optional<std::string> value = storedRow(file, block.section, block.key(row));
    if (!value && block.keys.empty()) { return; }
    if (form_.record == RecordForm::kTextRow && value.value_or("").empty()) { value = kDefaultTextRow; }
    rows_[static_cast<size_t>(first) + static_cast<size_t>(row)] = cellsOf(value.value_or(""));
  }
}

void SettingsSheet::loadColumns(const TINIFile& file) {
  for (size_t column = 0; column < std::size(kDataKeys); ++column) {
    if (!storedValue(file, kDataSection, kDataKeys[column])) { return; }
  }
  for (size_t column = 0; column < std::size(kDataKeys); ++column) {
    Row fields(rows_.size() + 1);
    splitFields(*storedValue(file, kDataSection, kDataKeys[column]), fields);
    for (size_t row = 0; row < rows_.size(); ++row) { rows_[row][column] = shownCell(fields[row + 1]); }
  }
}

// ---- Checking ---------------------------------------------------------------------------------------------------

void SettingsSheet::checkCell(const TINIFile& file, std::string_view section, std::string_view key, size_t column,
                              const std::string& cell) const {
  const SheetColumn& described = form_.columns[column];
  const auto numbers = numbersOf(described.entry);
  std::string text = storedCell(cell);
  coreTrimStr(text);
  if (!numbers || text.empty() || numberTaken(*numbers, text)) { return; }
  throw HostFailure(numberText::format("%s: \"%s\" of \"%s\" in section \"%s\" takes %s, got \"%s\"", file.FileName(),
                                       described.title, key, section, numbers->range, text));
}

void SettingsSheet::checkRow(const TINIFile& file, const RowBlock& block, const Row& row, int number) const {
  if (form_.record == RecordForm::kTextRow && numberText::parseTyped(row[kSizeCell]) == 0.0) { return; }
  for (size_t column = 0; column < row.size(); ++column) {
    checkCell(file, block.section, block.key(number), column, row[column]);
  }
}

void SettingsSheet::checkColumns(const TINIFile& file) const {
  for (const Row& row : rows_) {
    for (size_t column = 0; column < row.size(); ++column) {
      checkCell(file, kDataSection, kDataKeys[column], column, row[column]);
    }
  }
}

void SettingsSheet::check(const TINIFile& file) const {
  size_t first = 0;
  for (const RowBlock& block : form_.blocks) {
    for (int row = 0; row < block.count(); ++row) {
      checkRow(file, block, rows_[first + static_cast<size_t>(row)], row);
    }
    first += static_cast<size_t>(block.count());
  }
  if (form_.columnsAreRecords) { checkColumns(file); }
}

void checkSheets(const TINIFile& file, SurveyMode mode) {
  for (SheetForm& form : sheetForms(mode)) {
    SettingsSheet sheet(std::move(form));
    sheet.load(file);
    sheet.check(file);
  }
}

// ---- Saving -----------------------------------------------------------------------------------------------------

void SettingsSheet::save(TINIFile& file) const {
  int first = 0;
  for (const RowBlock& block : form_.blocks) {
    saveBlock(file, block, first);
    first += block.count();
  }
  if (form_.columnsAreRecords) { saveColumns(file); }
}

void SettingsSheet::saveBlock(TINIFile& file, const RowBlock& block, int first) const {
  int saved = 0;
  for (int row = 0; row < block.count(); ++row) {
    const Row& cells = rows_[static_cast<size_t>(first) + static_cast<size_t>(row)];
    if (!block.keys.empty() || !leftOut(cells)) { saveRow(file, block, cells, saved++); }
  }
  for (; saved < block.count() && storedValue(file, block.section, block.key(saved)); ++saved) {
    file.DeleteKey(block.section, block.key(saved));
  }
}

void SettingsSheet::saveRow(TINIFile& file, const RowBlock& block, const Row& row, int number) const {
  const std::string key = block.key(number);
  const std::optional<std::string> stored = storedValue(file, block.section, key);
  const bool readsAsDefault = form_.record == RecordForm::kTextRow && stored && stored->empty();
  if (stored && cellsOf(readsAsDefault ? kDefaultTextRow : std::string_view(*stored)) == row) { return; }
  if (!stored && isEmpty(row)) { return; }
  file.WriteString(block.section, key, valueOf(row));
}

SettingsSheet::Row SettingsSheet::column(size_t index) const {
  Row cells;
  for (const Row& row : rows_) { cells.push_back(row[index]); }
  return cells;
}

void SettingsSheet::saveColumns(TINIFile& file) const {
  const bool missing = !storedValue(file, kDataSection, kDataKeys[0]) || !storedValue(file, kDataSection, kDataKeys[1]);
  if (missing && std::ranges::all_of(rows_, isEmpty)) { return; }  // a table without a layout is not drawn
  for (size_t index = 0; index < std::size(kDataKeys); ++index) {
    Row fields{""};
    for (const std::string& cell : column(index)) { fields.push_back(storedCell(cell)); }
    Row stored(fields.size());
    splitFields(storedValue(file, kDataSection, kDataKeys[index]).value_or(""), stored);
    if (missing || stored != fields) { file.WriteString(kDataSection, kDataKeys[index], joinedFields(fields)); }
  }
}

}  // namespace ardenix::survey
