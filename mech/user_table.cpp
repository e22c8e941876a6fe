#include <algorithm>

#include "frame/drafting/part_round.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "mech/table_commands.h"
#include "mech/table_drawer.h"

// Tables that the user types or reads from a file.
namespace ardenix::mech {

namespace userTable {

namespace {

constexpr size_t kStartSize = 4;
constexpr size_t kMostRows = 10000;
constexpr size_t kMostColumns = 200;
constexpr size_t kLongestLineRead = 1998;
constexpr size_t kLongestLineWritten = 1995;
constexpr int kLongestCell = 1990;
constexpr int kColumnWidth = 64;

const std::string kOpenFilter = std::string(kTextFilesFilter) + "Excel Files (*.xls)|*.xls|All files (*.*)|*.*||";
const std::string kSaveFilter = std::string(kTextFilesFilter) + "All files (*.*)|*.*||";

class UserTableDialog {
 public:
  UserTableDialog(const Services& services, CCadWindow& view);
  UserTableDialog(const UserTableDialog&) = delete;
  UserTableDialog& operator=(const UserTableDialog&) = delete;
  ~UserTableDialog() = default;

  bool run();
  [[nodiscard]] GridTable table() const;

 private:
  // ---- Description
  void describeMenu();
  void describeButtons();

  // ---- Rows and columns
  void addRow();
  void addColumn();
  void growTo(size_t rows, size_t columns);
  void resizeRows(int count);
  [[nodiscard]] bool rowEmpty(size_t row) const;
  [[nodiscard]] bool columnEmpty(size_t column) const;
  void removeExcessRows();
  void removeExcessColumns();
  void clear();

  // ---- Files
  void importData();
  bool fits(const std::string& path, const std::vector<TableRow>& rows);
  void take(const std::vector<TableRow>& rows);
  void exportData();
  void save(const std::string& path);

  bool confirmLeaving();
  [[nodiscard]] dialog::Grid& grid() const { return table_.grid(); }
  [[nodiscard]] size_t rowCount() const { return grid().rows.size(); }
  [[nodiscard]] size_t columnCount() const { return grid().columns.size(); }
  [[nodiscard]] TableRow rowTexts(size_t row) const;

  const Services& services_;
  CCadWindow& view_;
  dialog::Dialog dialog_{"Mechanical Ardenix - Table"};
  dialog::GridHandle table_;
};

// ---- Description ----------------------------------------------------------------------------------------------

dialog::GridColumn numberedColumn(size_t number) {
  return {.title = std::to_string(number), .width = kColumnWidth, .widthCounts = true};
}

dialog::Cell emptyCell() { return {.limit = kLongestCell}; }

UserTableDialog::UserTableDialog(const Services& services, CCadWindow& view) : services_(services), view_(view) {
  equip(dialog_, services_, helpTopic("Table"));
  describeMenu();
  table_ = addGrid(dialog_, {.place = {.row = 1}, .name = "Table"}, {});
  grid().onGrow = [this](size_t rows, size_t columns) {
    if (rows <= kMostRows && columns <= kMostColumns) { growTo(rows, columns); }
  };
  grid().onRowCount = [this](int rows) { resizeRows(rows); };
  growTo(kStartSize, kStartSize);
  describeButtons();
  addControl(dialog_, dialog::StatusLine{}, {.place = {.row = 4}, .name = "Status"});
  dialog_.onOk = [this] {
    if (ask(&dialog_, "Would you like to save this data?", "")) { exportData(); }
    return true;
  };
  dialog_.onCancel = [this] { return confirmLeaving(); };
}

void UserTableDialog::describeMenu() {
  const auto item = [this](std::string caption, std::string toolTip, std::string status,
                           void (UserTableDialog::*action)()) {
    return dialog::MenuItem{.caption = std::move(caption),
                            .action = [this, action] { (this->*action)(); },
                            .toolTip = std::move(toolTip),
                            .statusText = std::move(status)};
  };
  dialog::MenuItem actions{.caption = "&Actions"};
  actions.items = {
      item("&Import Data", "Import data into the table from a spreadsheet",
           "Load data into the table from a text or Excel file", &UserTableDialog::importData),
      item("&Export Data", "Export data from the table to a spreadsheet", "Save this table to a text file",
           &UserTableDialog::exportData),
      item("Remove Excess &Rows", "Remove unused rows at the end of the table",
           "Remove empty rows from the bottom of the table", &UserTableDialog::removeExcessRows),
      item("Remove Excess &Columns", "Remove unused columns on the right hand side of the table",
           "Remove empty columns from the right hand side of the table", &UserTableDialog::removeExcessColumns),
      item("Clear", "Clear all data from the table", "Erase all data from this table", &UserTableDialog::clear)};
  addControl(dialog_, dialog::MenuBar{{std::move(actions)}}, {.name = "Menu"});
}

void UserTableDialog::describeButtons() {
  const int group = dialog_.addGroup({.place = {.row = 2}});
  addButton(dialog_, {.caption = "Add Row", .toolTip = "Add a row to the table", .group = group}).onPress([this] {
    addRow();
  });
  addButton(dialog_,
            {.caption = "Add Column", .toolTip = "Add a column to the table", .group = group, .place = {.column = 1}})
      .onPress([this] { addColumn(); });
}

bool UserTableDialog::run() {
  constexpr int kClosingRow = 3;
  addOkCancel(dialog_, kClosingRow);
  return services_.mainFrame->RunDialog(dialog_, services_.mainFrame);
}

// Leaving a table behind that was begun is asked about.
bool UserTableDialog::confirmLeaving() {
  return table_.cell(0, 0).text.empty() ||
         ask(&dialog_, "Are you sure you want to exit this function without drawing the table?", "");
}

TableRow UserTableDialog::rowTexts(size_t row) const {
  TableRow texts;
  texts.reserve(columnCount());
  for (const dialog::Cell& cell : grid().rows[row]) { texts.push_back(cell.text); }
  return texts;
}

GridTable UserTableDialog::table() const {
  GridTable table;
  table.pixels.reserve(columnCount());
  for (const dialog::GridColumn& column : grid().columns) { table.pixels.push_back(column.width); }
  table.rows.reserve(rowCount());
  for (size_t row = 0; row < rowCount(); ++row) { table.rows.push_back(rowTexts(row)); }
  return table;
}

// ---- Rows and columns -----------------------------------------------------------------------------------------

void UserTableDialog::growTo(size_t rows, size_t columns) {
  dialog::Grid& table = grid();
  while (table.columns.size() < columns) { table.columns.push_back(numberedColumn(table.columns.size() + 1)); }
  while (table.rows.size() < rows) {
    table.rows.emplace_back();
    table.rowHeadings.push_back(std::to_string(table.rows.size()));
  }
  for (auto& row : table.rows) { row.resize(table.columns.size(), emptyCell()); }
}

void UserTableDialog::resizeRows(int count) {
  const size_t rows = std::min(static_cast<size_t>(count), kMostRows);
  grid().rows.resize(std::min(rows, rowCount()));
  grid().rowHeadings.resize(rowCount());
  grid().currentRow = std::min(grid().currentRow, static_cast<int>(rows) - 1);
  growTo(rows, columnCount());
  table_.update();
}

void UserTableDialog::addRow() {
  if (rowCount() >= kMostRows) { return warn(&dialog_, "A table has %d rows at most.", static_cast<int>(kMostRows)); }
  growTo(rowCount() + 1, columnCount());
  table_.update();
}

void UserTableDialog::addColumn() {
  if (columnCount() >= kMostColumns) {
    return warn(&dialog_, "A table has %d columns at most.", static_cast<int>(kMostColumns));
  }
  growTo(rowCount(), columnCount() + 1);
  table_.update();
}

bool UserTableDialog::rowEmpty(size_t row) const {
  return std::ranges::all_of(grid().rows[row], [](const dialog::Cell& cell) { return cell.text.empty(); });
}

bool UserTableDialog::columnEmpty(size_t column) const {
  return std::ranges::all_of(grid().rows, [column](const auto& row) { return row[column].text.empty(); });
}

void UserTableDialog::removeExcessRows() {
  size_t rows = rowCount();
  while (rows > 1 && rowEmpty(rows - 1)) { --rows; }
  resizeRows(static_cast<int>(rows));
}

void UserTableDialog::removeExcessColumns() {
  while (columnCount() > 1 && columnEmpty(columnCount() - 1)) {
    grid().columns.pop_back();
    for (auto& row : grid().rows) { row.pop_back(); }
  }
  grid().currentColumn = std::min(grid().currentColumn, static_cast<int>(columnCount()) - 1);
  table_.update();
}

void UserTableDialog::clear() {
  for (auto& row : grid().rows) {
    for (dialog::Cell& cell : row) { cell.text.clear(); }
  }
  table_.update();
}

// ---- Files ----------------------------------------------------------------------------------------------------

// Does some work during which the user waits.
template <class Work>
void whileWaiting(CCadWindow& view, std::string_view text, int steps, const Work& work) {
  view.gsCursorWait(1);
  view.gsSetProgress(0, steps, text);
  work();
  view.gsSetProgress(steps, steps, "Done.");
  view.gsCursorWait(0);
}

void UserTableDialog::importData() {
  std::string path;
  if (coreChooseFile(&dialog_, true, kOpenFilter, "", "", path) == 0) { return; }
  if (coreFileExist(path) == 0) {
    return ErrorMessage(numberText::format("The file %s does not exist!", path), &dialog_);
  }
  const auto rows = readTable(path, kLongestLineRead, &dialog_);
  if (!rows || !fits(path, *rows)) { return; }
  whileWaiting(view_, "Loading data...", static_cast<int>(rows->size()), [&] { take(*rows); });
  table_.sizeToContents();
}

bool UserTableDialog::fits(const std::string& path, const std::vector<TableRow>& rows) {
  const size_t columns = rows.empty() ? 0 : rows.front().size();
  if (rows.size() <= kMostRows && columns <= kMostColumns) { return true; }
  ErrorMessage(numberText::format("%s has %d rows and %d columns; a table has %d rows and %d columns at most.", path,
                                  static_cast<int>(rows.size()), static_cast<int>(columns), static_cast<int>(kMostRows),
                                  static_cast<int>(kMostColumns)),
               &dialog_);
  return false;
}

// The first row says how many columns there are: what later ones have beyond is left out. All rows are made before the
// table takes them, since the user may give up on the way.
void UserTableDialog::take(const std::vector<TableRow>& rows) {
  const size_t columns = std::max(rows.empty() ? 0 : rows.front().size(), columnCount());
  std::vector<std::vector<dialog::Cell>> cells(std::max(rows.size(), rowCount()));
  for (size_t row = 0; row < cells.size(); ++row) {
    cells[row].resize(columns, emptyCell());
    if (row >= rows.size()) { continue; }
    const size_t given = std::min(rows[row].size(), columns);
    for (size_t column = 0; column < given; ++column) { cells[row][column].text = rows[row][column]; }
    view_.gsSetProgress(static_cast<int>(row) + 1, static_cast<int>(rows.size()), "Loading data...");
  }
  growTo(cells.size(), columns);
  grid().rows = std::move(cells);
}

void UserTableDialog::exportData() {
  std::string path;
  if (coreChooseFile(&dialog_, false, kSaveFilter, "", "", path) != 0) { save(path); }
}

void UserTableDialog::save(const std::string& path) {
  std::vector<std::string> lines;
  lines.reserve(rowCount());
  const int steps = static_cast<int>(rowCount());
  whileWaiting(view_, "Saving data...", steps, [&] {
    for (size_t row = 0; row < rowCount(); ++row) {
      lines.push_back(joinedFields(rowTexts(row)));
      view_.gsSetProgress(static_cast<int>(row) + 1, steps, "Saving data...");
    }
  });
  if (std::ranges::any_of(lines, [](const std::string& line) { return line.size() > kLongestLineWritten; })) {
    return ErrorMessage(numberText::format("Output line too long in file %s", path), &dialog_);
  }
  writeLines(path, lines, view_, &dialog_);
}

// ---- The command ----------------------------------------------------------------------------------------------

void placeUserTable(CCadWindow& view, const GridTable& table) {
  if (!mayDrawOn(view, view.gsGetCurrentLayerName())) { return; }
  if (const auto corner = askPlace(view, "Click to place the table")) { drawGridTable(view, table, *corner); }
}

}  // namespace

}  // namespace userTable

void drawUserTable(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  userTable::UserTableDialog dialog(toolset.services(), toolset.view());
  if (dialog.run()) { userTable::placeUserTable(toolset.view(), dialog.table()); }
  endPart(toolset.view());
}

}  // namespace ardenix::mech
