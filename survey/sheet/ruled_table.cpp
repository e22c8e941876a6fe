#include "survey/sheet/ruled_table.h"

#include <utility>

#include "frame/drafting/macro_texts.h"

namespace ardenix::survey {

namespace {

constexpr int kCentred = 15;
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

double RuledTable::height() const {
  const double end = form_.firstRow + form_.rowStep * static_cast<double>(rows_.size());
  return end - form_.lastRowLess + form_.rowStep * form_.lastRowSteps;
}

SurveyTable RuledTable::grid() const {
  const size_t columns = form_.widths.size();
  const auto rows = static_cast<int>(form_.cells.size() / columns);
  SurveyTable grid(rows, static_cast<int>(columns), form_.headingRow * unit_, 0.0, origin_, &view_, style_.layer);
  grid.setFrame(style_.tablePen, 1);
  grid.setKind(form_.kind);
  for (size_t column = 0; column < columns; ++column) {
    grid.setColumnWidth(static_cast<int>(column), form_.widths[column] * unit_);
    for (int row = 0; row < rows; ++row) {
      const HeadingCell& cell = form_.cells[static_cast<size_t>(row) * columns + column];
      grid.setBorders(row, static_cast<int>(column), bordersOf(cell.edges));
    }
  }
  grid.setRowHeight(rows - 1, height() * unit_);
  for (const auto& [row, column, text] : headings_) { grid.setCell(row, column, text, textStyle(kCentred)); }
  return grid;
}

void RuledTable::drawRows(const SurveyTable& grid) const {
  double down = form_.firstRow;
  for (const std::vector<std::string>& row : rows_) {
    for (size_t column = 0; column < row.size(); ++column) {
      const TableColumn& place = form_.columns[column];
      if (!row[column].empty()) {
        grid.placeText(place.across * unit_, down * unit_, row[column], textStyle(place.justification));
      }
    }
    down += form_.rowStep;
  }
}

void RuledTable::draw() const {
  const SurveyTable grid = this->grid();
  if (!form_.kind.empty()) { view_.gsExecuteMacro(macroText::beginGroup(form_.kind)); }
  for (const auto& [across, down, text] : captions_) {
    grid.placeText(across * unit_, down * unit_, text, textStyle(kCentred));
  }
  drawRows(grid);
  grid.draw();  // goes on with the group
}

}  // namespace ardenix::survey
