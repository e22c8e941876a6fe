#include "arch/layer_grid.h"

#include "frame/host/number_text.h"

namespace ardenix::arch {

using dialog::Cell;
using dialog::CellKind;

namespace {

enum LayerColumn { kPenColumn, kLineTypeColumn, kWidthColumn, kVisibleColumn };

constexpr double kLargestLineWidth = 72.0;
constexpr uint32_t kFixedGround = 0xC0C0C0;
constexpr std::string_view kVisibleText = "Yes";
constexpr std::string_view kHiddenText = "No";

std::vector<dialog::GridColumn> layerColumns() {
  return {{"Pen", "Right click to select the pen", 45},
          {"Line Type", "Select the layer line type from the drop down list", 145},
          {"Line Width", "Enter the line width", 80},
          {"Vis", "Right click to toggle visibility", 45}};
}

Cell numberCell(CellKind kind, std::string format) {
  Cell cell;
  cell.kind = kind;
  cell.maximum = kLargestLineWidth;
  cell.format = std::move(format);
  return cell;
}

Cell visibleCell(bool fixed) {
  Cell cell;
  if (fixed) {
    cell.readOnly = true;
    cell.ground = kFixedGround;
  } else {
    cell.kind = CellKind::kList;
    cell.items = {std::string(kVisibleText), std::string(kHiddenText)};
  }
  return cell;
}

int wholeNumber(const Cell& cell) { return static_cast<int>(numberText::parseTyped(cell.text).value_or(1.0)); }

}  // namespace

void LayerGrid::describe(dialog::Dialog& dialog, dialog::Setting setting, std::span<const LayerGridRow> rows,
                         CCadWindow& view) {
  view_ = &view;
  rows_.assign(rows.begin(), rows.end());
  dialog::Grid grid;
  grid.columns = layerColumns();
  for (const LayerGridRow& row : rows_) {
    grid.rowHeadings.emplace_back(row.name);
    grid.rows.push_back({numberCell(CellKind::kPen, "%d"), numberCell(CellKind::kLineType, "%d"),
                         numberCell(CellKind::kNumber, "%.2f"), visibleCell(row.visibilityFixed)});
  }
  grid.onCellEdit = [this](int row, int column) {
    if (column == kPenColumn) { colour(row); }
  };
  grid.onCellRightClick = [this](int row, int column) {
    if (column == kPenColumn) { choosePen(row); }
    if (column == kVisibleColumn) { toggle(row); }
  };
  grid_ = addGrid(dialog, std::move(setting), std::move(grid));
}

void LayerGrid::show(std::span<const LayerStyle> styles) {
  for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
    const LayerGridRow& shown = rows_[static_cast<size_t>(row)];
    const LayerStyle& style = styles[shown.style];
    grid_.cell(row, kPenColumn).text = std::to_string(style.pen);
    grid_.cell(row, kLineTypeColumn).text = std::to_string(style.linetype);
    grid_.cell(row, kWidthColumn).text = numberText::format("%.2f", style.width);
    grid_.cell(row, kVisibleColumn).text = style.visible ? kVisibleText : kHiddenText;
    colour(row);
  }
}

void LayerGrid::take(std::span<LayerStyle> styles) const {
  for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
    LayerStyle& style = styles[rows_[static_cast<size_t>(row)].style];
    style.pen = wholeNumber(grid_.cell(row, kPenColumn));
    style.linetype = wholeNumber(grid_.cell(row, kLineTypeColumn));
    style.width = numberText::parseTyped(grid_.cell(row, kWidthColumn).text).value_or(0.0);
    style.visible = grid_.cell(row, kVisibleColumn).text == kVisibleText;
  }
}

void LayerGrid::colour(int row) {
  Cell& cell = grid_.cell(row, kPenColumn);
  cell.ground = view_->gsGetPenColor(wholeNumber(cell));
  grid_.update();
}

void LayerGrid::choosePen(int row) {
  Cell& cell = grid_.cell(row, kPenColumn);
  int pen = wholeNumber(cell);
  if (view_->gsSetupPenDialog("Select pen", pen) == 0) { return; }
  cell.text = std::to_string(pen);
  colour(row);
}

void LayerGrid::toggle(int row) {
  Cell& cell = grid_.cell(row, kVisibleColumn);
  if (cell.readOnly) { return; }
  cell.text = cell.text == kVisibleText ? kHiddenText : kVisibleText;
  grid_.update();
}

}  // namespace ardenix::arch
