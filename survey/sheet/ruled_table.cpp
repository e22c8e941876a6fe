#include "survey/sheet/ruled_table.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/sheet_axes.h"

namespace ardenix::survey {

namespace {

constexpr double kSizesAMillimetre = 10.0;

TableBorders bordersOf(std::string_view edges) {
  const auto has = [&](char edge) { return edges.find(edge) != std::string_view::npos; };
  return {.top = has('T'), .right = has('R'), .bottom = has('B'), .left = has('L')};
}

}  // namespace

RuledTable::RuledTable(CCadWindow& view, const TableForm& form, TableStyle style, Point origin, double paperFactor)
    : view_(view),
      form_(form),
      style_(std::move(style)),
      origin_(origin),
      unit_(style_.height / kSizesAMillimetre * paperFactor) {
  const auto columns = static_cast<int>(form_.widths.size());
  for (size_t cell = 0; cell < form_.cells.size(); ++cell) {
    const int at = static_cast<int>(cell);
    setHeading(at / columns, at % columns, form_.cells[cell].text);
  }
}

void RuledTable::setHeading(int row, int column, std::string_view text) {
  if (!text.empty()) { headings_.push_back({row, column, std::string(text)}); }
}

void RuledTable::addCaption(double across, double down, std::string_view text) {
  captions_.push_back({across, down, std::string(text)});
}

void RuledTable::addRow(std::vector<std::string> texts) { rows_.push_back(std::move(texts)); }

TableTextStyle RuledTable::textStyle(int justification) const {
  return {.font = style_.font, .pen = style_.textPen, .height = style_.height, .justification = justification};
}

double RuledTable::width() const { return std::accumulate(form_.widths.begin(), form_.widths.end(), 0.0); }

double RuledTable::lastRowHeight(size_t rows) const {
  const double end = form_.firstRow + form_.rowStep * static_cast<double>(rows);
  return end - form_.lastRowLess + form_.rowStep * form_.lastRowSteps;
}

// Round so many rows; it opens no group.
SurveyTable RuledTable::grid(Point origin, size_t rowsBelow) const {
  const size_t columns = form_.widths.size();
  const auto rows = static_cast<int>(form_.cells.size() / columns);
  SurveyTable grid(rows, static_cast<int>(columns), form_.headingRow * unit_, 0.0, origin, &view_, style_.layer);
  grid.setFrame(style_.tablePen, 1);
  for (size_t column = 0; column < columns; ++column) {
    grid.setColumnWidth(static_cast<int>(column), form_.widths[column] * unit_);
    for (int row = 0; row < rows; ++row) {
      const HeadingCell& cell = form_.cells[static_cast<size_t>(row) * columns + column];
      grid.setBorders(row, static_cast<int>(column), bordersOf(cell.edges));
    }
  }
  grid.setRowHeight(rows - 1, lastRowHeight(rowsBelow) * unit_);
  for (const auto& [row, column, text] : headings_) { grid.setCell(row, column, text, textStyle(kCentredText)); }
  return grid;
}

void RuledTable::drawRows(const SurveyTable& grid, size_t first, size_t end) const {
  double down = form_.firstRow;
  for (size_t row = first; row < end; ++row) {
    for (size_t column = 0; column < rows_[row].size(); ++column) {
      const TableColumn& place = form_.columns[column];
      grid.placeText(place.across * unit_, down * unit_, rows_[row][column], textStyle(place.justification));
    }
    down += form_.rowStep;
  }
}

void RuledTable::draw(size_t rowsAColumn) const {
  constexpr double kGap = 1.0;
  if (!form_.kind.empty()) { view_.gsExecuteMacro(macroText::beginGroup(form_.kind)); }
  const size_t most = rowsAColumn == 0 ? std::max<size_t>(rows_.size(), 1) : rowsAColumn;
  const double sign = paperSignOf(view_);
  Point origin = origin_;
  for (size_t first = 0; first == 0 || first < rows_.size(); first += most) {
    const size_t end = std::min(first + most, rows_.size());
    SurveyTable grid = this->grid(origin, end - first);
    for (const auto& [across, down, text] : captions_) {
      grid.placeText(across * unit_, down * unit_, text, textStyle(kCentredText));
    }
    drawRows(grid, first, end);
    if (end == rows_.size()) { grid.setKind(form_.kind); }  // which goes on with the group, and ends it
    grid.draw();
    origin.x += sign * (width() + kGap) * unit_;
  }
}

}  // namespace ardenix::survey
