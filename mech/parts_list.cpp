#include "frame/add_item_dialog.h"
#include "frame/drafting/part_round.h"
#include "frame/host/number_text.h"
#include "frame/messages.h"
#include "frame/names.h"
#include "mech/list_command.h"
#include "mech/table_commands.h"

// Lists of parts that texts of the drawing name, with columns of the user's own.
namespace ardenix::mech {

namespace partsList {

namespace {

constexpr int kFirstColumnWidth = 75;
constexpr int kAddedColumnWidth = 60;
constexpr size_t kMostColumns = 50;

constexpr ListTrade kTrade = {.title = "Mechanical Ardenix - Parts List",
                              .help = "Parts List",
                              .listName = "Parts",
                              .listTip = "The list of parts that will be drawn as a table",
                              .saveQuestion = "Would you like to save this part list?",
                              .kind = "PARTS_TABLE",
                              .placePrompt = "Click to place parts table"};

class PartsList : public ListCommand {
 public:
  explicit PartsList(MechToolset& toolset);

 protected:
  void donePicking() override { showRows(rows_); }
  [[nodiscard]] std::vector<std::string> fileLines() const override;
  [[nodiscard]] std::vector<TableRow> rowsDrawn() const override;

 private:
  bool pickRow();
  void addColumn();
  [[nodiscard]] TableRow titles() const;

  std::vector<TableRow> rows_;
};

PartsList::PartsList(MechToolset& toolset) : ListCommand(toolset, kTrade) {
  addFrameChoice("Draw a frame around the parts list", {});
  for (const char* title : {"Name", "Description"}) {
    list().list().columns.push_back({.title = title, .width = kFirstColumnWidth});
  }
  addButton(box(), {.caption = "Add Column", .toolTip = "Add a column to the parts list", .group = buttonGroup()})
      .onPress([this] { addColumn(); });
  addPickButton("Add Parts", "Add a part to this list (from a text entity in the drawing)", 1,
                [this] { return pickRow(); });
}

void PartsList::addColumn() {
  if (titles().size() >= kMostColumns) {
    return warn(&box(), "A parts list has %d columns at most.", static_cast<int>(kMostColumns));
  }
  const auto typed = askItemName(services(), &box(), "Enter column name:");
  if (!typed || typed->empty()) { return; }
  list().list().columns.push_back(
      {.title = nameWithinLimit(*typed, "column", kNameLimit, &box()), .width = kAddedColumnWidth});
  for (TableRow& row : rows_) { row.emplace_back(); }
  list().list().rows = rows_;
  list().update();
}

TableRow PartsList::titles() const {
  TableRow titles;
  for (const dialog::ListColumn& column : list().list().columns) { titles.push_back(column.title); }
  return titles;
}

bool PartsList::pickRow() {
  const bool escapedBefore = view().gsEscapePressed() != 0;
  const auto at = askPoint(view(), "Click on a text reference to add (spacebar to finish)");
  if (!at) { return false; }
  TableRow row = {textAt(*at)};
  if (row.front().empty()) { return true; }
  const TableRow columns = titles();
  for (size_t column = 1; column < columns.size(); ++column) {
    std::string answer;
    const bool enough = !escapedBefore && view().gsEscapePressed() != 0;
    if (!enough) {
      view().gsGetTextFromPromptBar(numberText::format("Enter %s for part '%s':", columns[column], row.front()), answer,
                                    0);
    }
    row.push_back(std::move(answer));
  }
  rows_.push_back(std::move(row));
  return escapedBefore || view().gsEscapePressed() == 0;
}

std::vector<std::string> PartsList::fileLines() const {
  const auto line = [](const TableRow& row) { return joinedFields(row) + ','; };
  std::vector<std::string> lines = {line(titles())};
  lines.reserve(rows_.size() + 1);
  for (const TableRow& row : rows_) { lines.push_back(line(row)); }
  return lines;
}

std::vector<TableRow> PartsList::rowsDrawn() const {
  std::vector<TableRow> rows = {titles()};
  rows.insert(rows.end(), rows_.begin(), rows_.end());
  return rows;
}

}  // namespace

}  // namespace partsList

void drawPartsList(MechToolset& toolset) {
  if (toolset.checkConfiguration()) { partsList::PartsList(toolset).run(); }
}

}  // namespace ardenix::mech
