#include <algorithm>

#include "frame/add_item_dialog.h"
#include "frame/drafting/part_round.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/messages.h"
#include "frame/names.h"
#include "mech/balloons.h"
#include "mech/list_command.h"
#include "mech/placed_parts.h"
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
  void donePicking() override { showRows(texts()); }
  [[nodiscard]] std::vector<std::string> fileLines() const override;
  [[nodiscard]] DrawnList drawn() const override;
  void placed() override;

 private:
  // A row, and points of its part where the drawing told them.
  struct Part {
    TableRow texts;
    std::vector<Point> outline;
  };

  bool pickRow();
  void askColumn();
  void addColumn(std::string title, int width);
  size_t columnCalled(std::string_view title);
  void addPlacedParts();
  Part& rowOf(const PlacedPart& part);
  [[nodiscard]] TableRow titles() const;
  [[nodiscard]] std::vector<TableRow> texts() const;

  const DefinitionStore& store_;
  std::vector<Part> rows_;
  dialog::CheckHandle balloons_;
};

PartsList::PartsList(MechToolset& toolset) : ListCommand(toolset, kTrade), store_(toolset.configuration().store()) {
  addFrameChoice("Draw a frame around the parts list", {});
  balloons_ = addCheck(box(), {.caption = "Balloons",
                               .toolTip = "Number the parts, and place each number in a circle beside its part",
                               .group = optionsGroup(),
                               .place = {.column = 1}});
  addColumn("Name", kFirstColumnWidth);
  addColumn("Description", kFirstColumnWidth);
  addButton(box(), {.caption = "Add Column", .toolTip = "Add a column to the parts list", .group = buttonGroup()})
      .onPress([this] { askColumn(); });
  addPickButton("Add Parts", "Add a part to this list (from a text entity in the drawing)", 1,
                [this] { return pickRow(); });
  addButton(box(), {.caption = "Add Placed Parts",
                    .toolTip = "Count the bolts, screws, nuts and other parts of the drawing",
                    .group = buttonGroup(),
                    .place = {.column = 2}})
      .onPress([this] { addPlacedParts(); });
}

// ---- Columns --------------------------------------------------------------------------------------------------

void PartsList::askColumn() {
  if (titles().size() >= kMostColumns) {
    return warn(&box(), "A parts list has %d columns at most.", static_cast<int>(kMostColumns));
  }
  const auto typed = askItemName(services(), &box(), "Enter column name:");
  if (!typed || typed->empty()) { return; }
  addColumn(nameWithinLimit(*typed, "column", kNameLimit, &box()), kAddedColumnWidth);
  list().list().rows = texts();
  list().update();
}

void PartsList::addColumn(std::string title, int width) {
  list().list().columns.push_back({.title = std::move(title), .width = width});
  for (Part& row : rows_) { row.texts.emplace_back(); }
}

// Where the user has none of the name yet, there is one now.
size_t PartsList::columnCalled(std::string_view title) {
  const TableRow all = titles();
  const auto found = std::ranges::find(all, title);
  if (found == all.end()) { addColumn(std::string(title), kAddedColumnWidth); }
  return static_cast<size_t>(found - all.begin());
}

TableRow PartsList::titles() const {
  TableRow titles;
  for (const dialog::ListColumn& column : list().list().columns) { titles.push_back(column.title); }
  return titles;
}

std::vector<TableRow> PartsList::texts() const {
  std::vector<TableRow> rows;
  rows.reserve(rows_.size());
  for (const Part& row : rows_) { rows.push_back(row.texts); }
  return rows;
}

// ---- Rows -----------------------------------------------------------------------------------------------------

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
  rows_.push_back({std::move(row), {}});
  return escapedBefore || view().gsEscapePressed() == 0;
}

// A part that was counted before is counted anew.
PartsList::Part& PartsList::rowOf(const PlacedPart& part) {
  const auto same = [&part](const Part& row) {
    return !row.outline.empty() && row.texts[0] == part.name && row.texts[1] == part.description;
  };
  const auto found = std::ranges::find_if(rows_, same);
  if (found != rows_.end()) { return *found; }
  TableRow texts(titles().size());
  texts[0] = part.name;
  texts[1] = part.description;
  return rows_.emplace_back(Part{std::move(texts), part.outline});
}

void PartsList::addPlacedParts() {
  const std::vector<PlacedPart> parts = placedParts(view(), store_, *services().mainFrame);
  if (parts.empty()) { return InfoMessage("The drawing holds no parts of the libraries.", &box()); }
  const size_t quantity = columnCalled("Qty");
  for (const PlacedPart& part : parts) { rowOf(part).texts[quantity] = std::to_string(part.quantity); }
  showRows(texts());
}

// ---- What is made of them -------------------------------------------------------------------------------------

std::vector<std::string> PartsList::fileLines() const {
  const auto line = [](const TableRow& row) { return joinedFields(row) + ','; };
  std::vector<std::string> lines = {line(titles())};
  lines.reserve(rows_.size() + 1);
  for (const Part& row : rows_) { lines.push_back(line(row.texts)); }
  return lines;
}

// With balloons the rows have numbers of their own, before what the list shows.
DrawnList PartsList::drawn() const {
  constexpr const char* kNumbers = "Item";
  DrawnList table = {{}, {titles()}};
  for (const dialog::ListColumn& column : list().list().columns) { table.pixels.push_back(column.width); }
  for (const Part& row : rows_) { table.rows.push_back(row.texts); }
  if (!balloons_.checked()) { return table; }
  table.pixels.insert(table.pixels.begin(), dialog::widthForText(std::string_view(kNumbers).size()));
  for (size_t row = 0; row < table.rows.size(); ++row) {
    table.rows[row].insert(table.rows[row].begin(), row == 0 ? kNumbers : std::to_string(row));
  }
  return table;
}

void PartsList::placed() {
  if (!balloons_.checked()) { return; }
  std::vector<BalloonRow> balloons;
  balloons.reserve(rows_.size());
  for (const Part& row : rows_) { balloons.push_back({row.texts.front(), row.outline}); }
  placeBalloons(view(), balloons);
}

}  // namespace

}  // namespace partsList

void drawPartsList(MechToolset& toolset) {
  if (toolset.checkConfiguration()) { partsList::PartsList(toolset).run(); }
}

}  // namespace ardenix::mech
