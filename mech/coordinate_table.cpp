#include <algorithm>
#include <optional>

#include "frame/drafting/part_round.h"
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
  [[nodiscard]] size_t columnsDrawn() const override { return diameters_.checked() ? 4 : 3; }
  [[nodiscard]] std::vector<TableRow> rowsDrawn() const override;

 private:
  void describeOptions();
  void describeButtons();
  bool pickRow();
  bool pickOrigin();
  void addHoles();
  void show() const;
  [[nodiscard]] TableRow texts(const CoordinateRow& row) const;
  // The label where the user clicks; nothing where he gives up the row.
  [[nodiscard]] std::optional<std::string> askLabel() const;

  std::vector<CoordinateRow> rows_;
  Point origin_;  // from which coordinates count
  dialog::CheckHandle diameters_;
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
  const int decimals = std::clamp(decimals_.GetValue(), 0, kMostDecimals);
  const auto number = [decimals](double value) { return numberText::fixed(value, decimals); };
  return {row.label, number(row.at.x - origin_.x), number(row.at.y - origin_.y), number(row.diameter)};
}

void CoordinateTable::show() const {
  std::vector<TableRow> rows;
  rows.reserve(rows_.size());
  for (const CoordinateRow& row : rows_) { rows.push_back(texts(row)); }
  showRows(std::move(rows));
}

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
  for (LabelledHole& hole : labelledHoles(view())) {
    rows_.push_back({std::move(hole.label), hole.centre, hole.diameter});
  }
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
  lines.reserve(rows_.size() + 1);
  for (const CoordinateRow& row : rows_) {
    TableRow fields = texts(row);
    fields.front() = onOneLine(fields.front());
    lines.push_back(joinedFields(fields));
  }
  return lines;
}

std::vector<TableRow> CoordinateTable::rowsDrawn() const {
  std::vector<TableRow> rows = {{"ID", "X", "Y", "\xD8"}};
  rows.reserve(rows_.size() + 1);
  for (const CoordinateRow& row : rows_) { rows.push_back(texts(row)); }
  return rows;
}

}  // namespace

}  // namespace coordinateTable

void drawCoordinateTable(MechToolset& toolset) {
  if (toolset.checkConfiguration()) { coordinateTable::CoordinateTable(toolset).run(); }
}

}  // namespace ardenix::mech
