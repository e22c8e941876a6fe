#include <algorithm>
#include <tuple>
#include <utility>

#include "frame/host/limits.h"
#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/window/clipboard_table.h"
#include "host/window/control_kinds.h"
#include "host/window/dialog_fields.h"
#include "host/window/dialog_session.h"

// Grids and lists with columns: their cells, rows and widths.
namespace brevan {

using namespace dialog;

namespace {

Refusal rowRefusal(const std::string& name, int row, size_t rows) {
  if (row >= 1 && static_cast<size_t>(row) <= rows) { return std::nullopt; }
  return name + " has no row " + std::to_string(row) + ", it has " + std::to_string(rows);
}

const Cell* cellIn(const Grid& grid, int row, const std::string& column) {
  const int place = columnNamed(grid.columns, column);
  if (place < 0 || row < 1 || static_cast<size_t>(row) > grid.rows.size()) { return nullptr; }
  const auto& cells = grid.rows[static_cast<size_t>(row) - 1];
  return static_cast<size_t>(place) < cells.size() ? &cells[static_cast<size_t>(place)] : nullptr;
}

// Why a cell does not take a text; the text in the cell's own form where it does.
Refusal cellRefusal(const Cell& cell, const std::string& column, std::string& text) {
  if (cell.readOnly) { return inQuotes(column) + " cannot be edited in this row"; }
  if (text.empty() && cell.mayBeEmpty) { return std::nullopt; }
  const bool pen = cell.kind == CellKind::kPen;
  if (cell.kind == CellKind::kNumber || cell.kind == CellKind::kInteger || pen || cell.kind == CellKind::kLineType) {
    NumberEdit edit;
    edit.integer = cell.kind != CellKind::kNumber;
    edit.minimum = cell.minimum;
    edit.maximum = cell.maximum;
    if (edit.integer && cell.kind != CellKind::kInteger) {
      const limits::WholeRange& range = pen ? limits::kPens : limits::kLineTypes;
      edit.minimum = range.least;
      edit.maximum = range.most;
    }
    edit.text = text;
    if (auto refusal = refusalOf(column, edit)) { return refusal; }
    const double value = *numberText::parseTyped(text);
    if (!cell.format.empty()) {
      text = edit.integer ? numberText::format(cell.format, static_cast<long long>(value))
                          : numberText::format(cell.format, value);
    }
    return std::nullopt;
  }
  if (cell.kind == CellKind::kList && entryNamed(cell.items, text) < 0) {
    return inQuotes(column) + " has no entry " + inQuotes(text);
  }
  if (cell.limit > 0 && text.find_first_of("\r\n") != std::string::npos) {
    return inQuotes(column) + " takes one line of text";
  }
  if (cell.limit > 0 && text.size() > static_cast<size_t>(cell.limit)) {
    return inQuotes(column) + " takes " + std::to_string(cell.limit) + " characters at most, got " +
           std::to_string(text.size());
  }
  if (cell.kind == CellKind::kCheck && text != "0" && text != "1") { return inQuotes(column) + " takes 0 or 1"; }
  return std::nullopt;
}

}  // namespace

Refusal DialogSession::editCell(int control, int row, const std::string& column, const std::string& text) {
  const auto* before = std::get_if<Grid>(&dialog_.control(control).state);
  if (before != nullptr && columnNamed(before->columns, column) < 0) {
    return named(control) + " has no column " + inQuotes(column);
  }
  if (auto refusal = clickCell(control, row, column, Click::kSelect)) { return refusal; }
  Grid& grid = dialog_.state<Grid>(control);
  const auto at = [](auto& list, int index) {  // the rule of the click may have changed the rows
    return index >= 0 && index < static_cast<int>(list.size()) ? &list[static_cast<size_t>(index)] : nullptr;
  };
  std::vector<Cell>* cells = at(grid.rows, grid.currentRow);
  Cell* found = cells == nullptr ? nullptr : at(*cells, grid.currentColumn);
  if (found == nullptr) { return named(control) + " has no column " + inQuotes(column) + " in this row"; }
  Cell& cell = *found;
  std::string entered = text;
  if (auto refusal = cellRefusal(cell, column, entered)) { return refusal; }
  cell.text = std::move(entered);
  dialog_.changed(control);
  if (grid.onCellEdit) { grid.onCellEdit(grid.currentRow, grid.currentColumn); }
  tellEdited(control);
  return std::nullopt;
}

Refusal DialogSession::ensureRow(int control, int row, const std::vector<std::string>& cells) {
  if (cells.size() % 2 != 0) { return named(control) + " needs a text for the column " + inQuotes(cells.back()); }
  if (auto refusal = showPageOf(control)) { return refusal; }
  for (size_t column = 0; column < cells.size(); column += 2) {
    if (auto refusal = ensureCell(control, row, cells[column], cells[column + 1])) { return refusal; }
  }
  return std::nullopt;
}

Refusal DialogSession::ensureCell(int control, int row, const std::string& column, const std::string& text) {
  const auto holds = [&] {
    const auto* grid = std::get_if<Grid>(&dialog_.control(control).state);
    const Cell* cell = grid == nullptr ? nullptr : cellIn(*grid, row, column);
    return cell != nullptr && valueOf(*cell) == text;
  };
  if (holds()) { return std::nullopt; }
  if (auto refusal = editCell(control, row, column, text)) { return refusal; }
  if (holds()) { return std::nullopt; }
  return inQuotes(column) + " in row " + std::to_string(row) + " does not take " + inQuotes(text);
}

Refusal DialogSession::ensureRowCount(int control, int rows) {
  const auto* grid = std::get_if<Grid>(&dialog_.control(control).state);
  if (grid == nullptr) { return notThisKind(named(control), dialog_.control(control).state, "has no rows"); }
  if (static_cast<int>(grid->rows.size()) == rows) { return std::nullopt; }
  if (auto refusal = showPageOf(control)) { return refusal; }
  if (auto refusal = focus(control)) { return refusal; }
  if (const auto rule = grid->onRowCount; rule && rows > 0) { rule(rows); }
  const size_t now = dialog_.state<Grid>(control).rows.size();
  return static_cast<int>(now) == rows ? std::nullopt : rowRefusal(named(control), rows, now);
}

// ---- Rows ------------------------------------------------------------------------------------------------

Refusal DialogSession::insertRow(int control, int row) {
  if (auto refusal = clickCell(control, row, "", Click::kSelect)) { return refusal; }
  const auto* grid = std::get_if<Grid>(&dialog_.control(control).state);
  if (grid == nullptr || !grid->onInsertRow) {
    return notThisKind(named(control), dialog_.control(control).state, "takes no further rows");
  }
  const auto rule = grid->onInsertRow;
  rule(row - 1);
  return std::nullopt;
}

namespace {

using ClipboardRows = std::vector<std::vector<std::string>>;

struct CellPlace {
  size_t row;
  size_t column;
};

// Writes the rows into the cells from a place on; says which cell does not take its text.
Refusal fillCells(Grid& grid, const ClipboardRows& block, CellPlace first, std::vector<CellPlace>& filled) {
  for (size_t row = 0; row < block.size(); ++row) {
    for (size_t column = 0; column < block[row].size(); ++column) {
      const CellPlace place{first.row + row, first.column + column};
      Cell& cell = grid.rows.at(place.row).at(place.column);
      std::string text = block[row][column];
      if (text == cell.text) { continue; }
      if (auto refusal = cellRefusal(cell, addressOf(grid.columns[place.column]), text)) {
        return "row " + std::to_string(place.row + 1) + ": " + *refusal;
      }
      cell.text = std::move(text);
      filled.push_back(place);
    }
  }
  return std::nullopt;
}

}  // namespace

Refusal DialogSession::paste(int control, int row, const std::string& column, const std::string& text) {
  if (auto refusal = clickCell(control, row, column, Click::kSelect)) { return refusal; }
  auto* grid = std::get_if<Grid>(&dialog_.control(control).state);
  if (grid == nullptr || grid->currentColumn < 0) { return named(control) + " has no cell to paste into"; }
  const CellPlace first{static_cast<size_t>(row) - 1, static_cast<size_t>(grid->currentColumn)};
  const ClipboardRows block = clipboardRows(text);
  size_t width = 0;
  for (const auto& fields : block) { width = std::max(width, fields.size()); }
  const auto hasRoom = [&] {
    return first.row + block.size() <= grid->rows.size() && first.column + width <= grid->columns.size();
  };
  const auto before = std::pair(grid->rows, grid->columns);
  const auto headings = grid->rowHeadings;
  if (!hasRoom() && grid->onGrow) { grid->onGrow(first.row + block.size(), first.column + width); }
  std::vector<CellPlace> filled;
  Refusal refusal = hasRoom() ? fillCells(*grid, block, first, filled)
                              : named(control) + " has no room for " + std::to_string(block.size()) + " rows and " +
                                    std::to_string(width) + " columns there";
  if (refusal) {
    std::tie(grid->rows, grid->columns) = before;
    grid->rowHeadings = headings;
    dialog_.changed(control);
    return refusal;
  }
  dialog_.changed(control);
  for (const CellPlace place : filled) {
    if (grid->onCellEdit) { grid->onCellEdit(static_cast<int>(place.row), static_cast<int>(place.column)); }
  }
  if (!filled.empty()) { tellEdited(control); }
  return std::nullopt;
}

// ---- The mouse -------------------------------------------------------------------------------------------

// Rows are counted from 1 as the user sees them; without a column the row's heading is meant.
Refusal DialogSession::clickCell(int control, int row, const std::string& column, Click click) {
  if (auto refusal = focus(control)) { return refusal; }
  if (auto* list = std::get_if<ColumnList>(&dialog_.control(control).state)) {
    if (auto refusal = rowRefusal(named(control), row, list->rows.size())) { return refusal; }
    list->selected = row - 1;
    edited(control);
    return std::nullopt;
  }
  auto* grid = std::get_if<Grid>(&dialog_.control(control).state);
  if (grid == nullptr) { return notThisKind(named(control), dialog_.control(control).state, "has no cells"); }
  if (auto refusal = rowRefusal(named(control), row, grid->rows.size())) { return refusal; }
  const int place = column.empty() ? -1 : columnNamed(grid->columns, column);
  if (place < 0 && !column.empty()) { return named(control) + " has no column " + inQuotes(column); }
  grid->currentRow = row - 1;
  grid->currentColumn = place;
  const bool selects = click == Click::kSelect || click == Click::kClick;
  if (const auto select = grid->onCellSelect; selects && select) { select(row - 1, place); }
  const auto& rule = click == Click::kPress ? grid->onCellPress : grid->onCellRightClick;
  const auto action = click == Click::kClick ? grid->onCellClick : selects ? nullptr : rule;
  if (action) { action(row - 1, place); }
  return std::nullopt;
}

Refusal DialogSession::setColumnWidth(int control, const std::string& column, int pixels) {
  if (auto refusal = inoperable(control)) { return refusal; }
  if (pixels < 0) { return "a column's width is 0 pixels or more, got " + std::to_string(pixels); }
  const auto widen = [&](auto& columns) -> Refusal {
    const int place = columnNamed(columns, column);
    if (place < 0) { return named(control) + " has no column " + inQuotes(column); }
    columns[static_cast<size_t>(place)].width = pixels;
    columns[static_cast<size_t>(place)].widthCounts = true;
    edited(control);
    return std::nullopt;
  };
  if (auto* list = std::get_if<ColumnList>(&dialog_.control(control).state)) { return widen(list->columns); }
  if (auto* grid = std::get_if<Grid>(&dialog_.control(control).state)) { return widen(grid->columns); }
  return named(control) + " has no column " + inQuotes(column);
}

}  // namespace brevan
