#include <algorithm>
#include <iterator>
#include <map>
#include <optional>

#include "frame/drafting/part_round.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "mech/labelled_holes.h"
#include "mech/list_command.h"
#include "mech/table_commands.h"

// Tables of points of the drawing, such as the centres of holes.
namespace ardenix::mech {

namespace coordinateTable {

namespace {

constexpr int kColumnWidth = 75;
constexpr int kMostDecimals = 6;
constexpr size_t kDiameterColumn = 3;
// Behind the others where holes are grouped by size.
constexpr const char* kSizeColumns[] = {"Qty", "Size"};

constexpr ListTrade kTrade = {.title = "Mechanical Ardenix - Coordinate Table",
                              .help = "Coordinate Table",
                              .listName = "Coordinates",
                              .listTip = "The coordinates that will be drawn as a table",
                              .saveQuestion = "Would you like to save this coord table?",
                              .kind = "COORD_TABLE",
                              .placePrompt = "Click to place the coordinate table"};

struct CoordinateRow {
  std::string label;
  Point at;
  double diameter = 0.0;  // 0 where no circle lies there
};

// Picks jump to points of the drawing for as long as it lives.
class PointSnap {
 public:
  explicit PointSnap(CCadWindow& view) : view_(view) { view_.gsCursorSnapPoint(1); }
  PointSnap(const PointSnap&) = delete;
  PointSnap& operator=(const PointSnap&) = delete;
  ~PointSnap() { view_.gsCursorSnapPoint(0); }

 private:
  CCadWindow& view_;
};

// The diameter of the circle or arc nearest to a point.
double diameterAt(CCadWindow& view, Point at) {
  if (view.gsNearestPrim(kArcPrimitive, at.x, at.y) == 0) { return 0.0; }
  Point start;
  Point centre;
  Point end;
  int sense = 0;
  view.gsGetArc(start.x, start.y, centre.x, centre.y, end.x, end.y, sense);
  return 2.0 * distance(centre, end);
}

class CoordinateTable : public ListCommand {
 public:
  explicit CoordinateTable(MechToolset& toolset);

 protected:
  void donePicking() override { show(); }
  [[nodiscard]] std::vector<std::string> fileLines() const override;
  [[nodiscard]] DrawnList drawn() const override;

 private:
  void describeOptions();
  void describeButtons();
  bool pickRow();
  bool pickOrigin();
  void addHoles();
  void show() const;
  void groupBySize();
  [[nodiscard]] int decimals() const { return std::clamp(decimals_.GetValue(), 0, kMostDecimals); }
  [[nodiscard]] TableRow texts(const CoordinateRow& row) const;
  [[nodiscard]] std::vector<TableRow> rows() const;
  [[nodiscard]] std::vector<TableRow> rowsBySize() const;
  // The label where the user clicks; nothing where he gives up the row.
  [[nodiscard]] std::optional<std::string> askLabel() const;

  std::vector<CoordinateRow> rows_;
  Point origin_;  // from which coordinates count
  dialog::CheckHandle diameters_;
  dialog::CheckHandle bySize_;
  CIntSpinCtrl decimals_;
};

CoordinateTable::CoordinateTable(MechToolset& toolset) : ListCommand(toolset, kTrade) {
  describeOptions();
  for (const char* title : {"ID", "X", "Y", "\xD8"}) {
    list().list().columns.push_back({.title = title, .width = kColumnWidth});
  }
  describeButtons();
}

void CoordinateTable::describeButtons() {
  addPickButton("Add Coords", "Click here to add coordinates from the drawing", 0, [this] { return pickRow(); });
  addButton(box(),
            {.caption = "Add All Holes",
             .toolTip = "Add every circle of the drawing that has a label within 10 mm, in the order of the labels",
             .group = buttonGroup(),
             .place = {.column = 1}})
      .onPress([this] { addHoles(); });
  addPickButton("Origin...", "Choose the point from which the coordinates count", 2, [this] { return pickOrigin(); });
}

void CoordinateTable::describeOptions() {
  constexpr int kUsualDecimals = 3;
  diameters_ = addCheck(box(), {.caption = "Include diameter",
                                .toolTip = "Check this to include the 'diameter' column in the table when it is drawn",
                                .group = optionsGroup()});
  diameters_.setChecked(true);
  addFrameChoice("Check this to draw a frame around the table", {.row = 1});
  bySize_ = addCheck(
      box(),
      {.caption = "Group by size",
       .toolTip = "Check this to list holes of one size together, with their number and size in columns of their own",
       .group = optionsGroup(),
       .place = {.column = 1}});
  bySize_.onEdit([this] { groupBySize(); });
  decimals_ = addSpin(box(),
                      {.caption = "Decimal places:",
                       .toolTip = "The number of decimal places to display for the coordinates",
                       .group = optionsGroup(),
                       .place = {.row = 2}},
                      0, kMostDecimals);
  decimals_.SetValue(kUsualDecimals);
  decimals_.onEdit([this] { show(); });
}

// ---- Rows -----------------------------------------------------------------------------------------------------

TableRow CoordinateTable::texts(const CoordinateRow& row) const {
  const auto number = [this](double value) { return numberText::fixed(value, decimals()); };
  return {row.label, number(row.at.x - origin_.x), number(row.at.y - origin_.y), number(row.diameter)};
}

std::vector<TableRow> CoordinateTable::rows() const {
  if (bySize_.checked()) { return rowsBySize(); }
  std::vector<TableRow> rows;
  rows.reserve(rows_.size());
  for (const CoordinateRow& row : rows_) { rows.push_back(texts(row)); }
  return rows;
}

// The smallest first, in the order of their labels. Sizes that read alike are one.
std::vector<TableRow> CoordinateTable::rowsBySize() const {
  std::map<double, std::vector<TableRow>> sizes;
  for (const CoordinateRow& row : rows_) {
    TableRow fields = texts(row);
    sizes[numberText::parseDouble(fields[kDiameterColumn]).value_or(0.0)].push_back(std::move(fields));
  }
  std::vector<TableRow> rows;
  rows.reserve(rows_.size());
  for (auto& [size, holes] : sizes) {
    std::ranges::stable_sort(holes, [](const TableRow& a, const TableRow& b) { return comesBefore(a[0], b[0]); });
    for (TableRow& hole : holes) { hole.resize(hole.size() + std::size(kSizeColumns)); }
    TableRow& first = holes.front();
    first[kDiameterColumn + 1] = std::to_string(holes.size());
    first[kDiameterColumn + 2] = size > 0.0 ? "\xD8" + first[kDiameterColumn] : std::string();
    std::ranges::move(holes, std::back_inserter(rows));
  }
  return rows;
}

void CoordinateTable::groupBySize() {
  auto& columns = list().list().columns;
  columns.resize(kDiameterColumn + 1);
  if (bySize_.checked()) {
    for (const char* title : kSizeColumns) { columns.push_back({.title = title, .width = kColumnWidth}); }
  }
  show();
}

void CoordinateTable::show() const { showRows(rows()); }

// A point of the drawing near the click.
std::optional<Point> askSnapped(CCadWindow& view, std::string_view prompt) {
  const PointSnap snap(view);
  return askPoint(view, prompt);
}

// Coordinates count from it from now on, those of the rows that are there as well.
bool CoordinateTable::pickOrigin() {
  if (const auto at = askSnapped(view(), "Click on the origin of the coordinates")) { origin_ = *at; }
  return false;
}

void CoordinateTable::addHoles() {
  std::vector<LabelledHole> holes = labelledHoles(view());
  if (holes.empty()) { return InfoMessage("No circle of the drawing has a label within 10 mm.", &box()); }
  for (LabelledHole& hole : holes) { rows_.push_back({std::move(hole.label), hole.centre, hole.diameter}); }
  show();
}

bool CoordinateTable::pickRow() {
  const auto at = askSnapped(view(), "Click on a coordinate to add (spacebar to finish)");
  if (!at) { return false; }
  const double diameter = diameters_.checked() ? diameterAt(view(), *at) : 0.0;
  const auto label = askLabel();
  if (!label) { return false; }
  rows_.push_back({*label, *at, diameter});
  view().gsSetStatus(numberText::format("Coordinate at %.3f, %.3f added.", at->x, at->y));
  return true;
}

std::optional<std::string> CoordinateTable::askLabel() const {
  const bool escapedBefore = view().gsEscapePressed() != 0;
  if (const auto at = askPoint(view(), "Click on the label for this coordinate")) { return textAt(*at); }
  if (!escapedBefore && view().gsEscapePressed() != 0) { return std::nullopt; }
  return std::string();
}

// ---- What is made of them -------------------------------------------------------------------------------------

// A line break within a label would end its line.
std::string onOneLine(std::string label) {
  for (const std::string_view lineBreak : {"\\N", "\\n"}) {
    for (size_t at = label.find(lineBreak); at != std::string::npos; at = label.find(lineBreak, at)) {
      label.replace(at, lineBreak.size(), " ");
    }
  }
  return label;
}

std::vector<std::string> CoordinateTable::fileLines() const {
  std::vector<std::string> lines = {"Id,X,Y,\xD8"};
  if (bySize_.checked()) {
    for (const char* title : kSizeColumns) { lines.front() += std::string(",") + title; }
  }
  lines.reserve(rows_.size() + 1);
  for (TableRow& fields : rows()) {
    fields.front() = onOneLine(fields.front());
    lines.push_back(joinedFields(fields));
  }
  return lines;
}

// Diameters are drawn only where the user wants them, whatever was looked for when a row was picked.
DrawnList CoordinateTable::drawn() const {
  DrawnList table = {{}, rows()};
  TableRow titles;
  for (const dialog::ListColumn& column : list().list().columns) {
    titles.push_back(column.title);
    table.pixels.push_back(column.width);
  }
  table.rows.insert(table.rows.begin(), std::move(titles));
  if (diameters_.checked()) { return table; }
  table.pixels.erase(table.pixels.begin() + kDiameterColumn);
  for (TableRow& row : table.rows) { row.erase(row.begin() + kDiameterColumn); }
  return table;
}

}  // namespace

}  // namespace coordinateTable

void drawCoordinateTable(MechToolset& toolset) {
  if (toolset.checkConfiguration()) { coordinateTable::CoordinateTable(toolset).run(); }
}

}  // namespace ardenix::mech
