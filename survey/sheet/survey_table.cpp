#include "survey/sheet/survey_table.h"

#include <algorithm>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/sheet_axes.h"

namespace ardenix::survey {

SurveyTable::SurveyTable(int rows, int columns, double rowHeight, double columnWidth, Point origin, CCadWindow* view,
                         int layer)
    : view_(view), layer_(layer), origin_(origin), columns_(std::clamp(columns, 0, kMostColumns)) {
  if (view_ != nullptr) { sign_ = paperSignOf(*view_); }
  Cell plain;
  plain.height = rowHeight;
  plain.width = columnWidth;
  rows_.assign(static_cast<size_t>(std::clamp(rows, 0, kMostRows)),
               std::vector<Cell>(static_cast<size_t>(columns_), plain));
  layOut();
}

void SurveyTable::setColumnWidth(int column, double width) {
  for (int row = 0; row < rows(); ++row) { cell(row, column).width = width; }
  layOut();
}

void SurveyTable::setRowHeight(int row, double height) {
  for (int column = 0; column < columns_; ++column) { cell(row, column).height = height; }
  layOut();
}

void SurveyTable::setCell(int row, int column, std::string_view text, const TableTextStyle& style) {
  cell(row, column).text = text;
  cell(row, column).style = style;
}

void SurveyTable::setBorders(int row, int column, const TableBorders& borders) { cell(row, column).borders = borders; }

void SurveyTable::layOut() {
  double across = 0.0;
  for (int column = 0; column < columns_ && !rows_.empty(); ++column) {
    double down = 0.0;
    for (int row = 0; row < rows(); ++row) {
      Cell& laid = cell(row, column);
      laid.offset = {sign_ * across, -sign_ * down};
      down += laid.height;
    }
    across += cell(rows() - 1, column).width;
  }
}

Point SurveyTable::at(double across, double down) const { return origin_ + Point{sign_ * across, -sign_ * down}; }

void SurveyTable::draw() const {
  if (view_ == nullptr) { return; }
  if (!kind_.empty()) { view_->gsExecuteMacro(macroText::beginGroup(kind_)); }
  for (size_t column = 0; column < static_cast<size_t>(columns_); ++column) {
    for (const auto& row : rows_) {
      const Cell& drawn = row.at(column);
      drawEdges(drawn);
      const Point middle = origin_ + drawn.offset + Point{sign_ * drawn.width / 2.0, -sign_ * drawn.height / 2.0};
      drawText(middle, drawn.text, drawn.style, kCentredText);
    }
  }
  if (!kind_.empty()) { view_->gsExecuteMacro(macroText::kUnnamedPattern); }
  view_->gsSetViewDirty(1);
  view_->gsRefresh();
}

void SurveyTable::drawEdges(const Cell& cell) const {
  const Point topLeft = origin_ + cell.offset;
  const Point across{sign_ * cell.width, 0.0};
  const Point down{0.0, -sign_ * cell.height};
  const struct {
    bool drawn;
    Point from;
    Point to;
  } edges[] = {{cell.borders.top, topLeft, topLeft + across},
               {cell.borders.right, topLeft + across, topLeft + across + down},
               {cell.borders.bottom, topLeft + down, topLeft + across + down},
               {cell.borders.left, topLeft, topLeft + down}};
  const DraftingPen pen(*view_, {.pen = framePen_, .linetype = frameLinetype_}, layer_);
  for (const auto& [drawn, from, to] : edges) {
    if (!drawn) { continue; }
    pen.line(from, to);
  }
}

void SurveyTable::drawText(Point at, std::string_view text, const TableTextStyle& style, int justification) const {
  DraftingPen(*view_, {}, layer_)
      .text(at, text,
            {.height = static_cast<double>(style.height),
             .justification = justification,
             .style = static_cast<double>(style.style),
             .font = style.font,
             .pen = style.pen});
}

void SurveyTable::placeText(double across, double down, std::string_view text, const TableTextStyle& style) const {
  if (view_ != nullptr) { drawText(at(across, down), text, style, style.justification); }
}

void SurveyTable::placeSymbol(double across, double down, std::string_view name) const {
  if (view_ == nullptr) { return; }
  view_->gsExecuteMacro(macroText::addSymbol(name, at(across, down)));
  view_->gsExecuteMacro(macroText::kUnnamedPattern);
}

}  // namespace ardenix::survey
