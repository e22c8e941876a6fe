#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::survey {

inline constexpr int kCentredText = 15;

struct TableTextStyle {
  std::string font = "Arial";
  int pen = 1;
  int height = 0;  // tenths of a millimetre on paper
  int style = 0;
  int justification = kCentredText;
};

struct TableBorders {
  bool top = false;
  bool right = false;
  bool bottom = false;
  bool left = false;
};

// The ruled cells of a table's heading, and texts and symbols at offsets from the same origin for its rows. Sizes and
// offsets are drawing units, to the right and down on paper; on a south-oriented sheet that is left and up in the
// drawing. A row or column that is not there throws std::out_of_range.
class SurveyTable {
 public:
  static constexpr int kMostRows = 4;
  static constexpr int kMostColumns = 20;

  // More rows and columns than the most are cut. The origin is the grid's top left corner on paper.
  SurveyTable(int rows, int columns, double rowHeight, double columnWidth, Point origin, CCadWindow* view, int layer);

  void setFrame(int pen, int linetype) { framePen_ = pen, frameLinetype_ = linetype; }
  // A table with a kind is drawn as one group of that name.
  void setKind(std::string_view kind) { kind_ = kind; }
  void setColumnWidth(int column, double width);
  void setRowHeight(int row, double height);
  void setCell(int row, int column, std::string_view text, const TableTextStyle& style);
  void setBorders(int row, int column, const TableBorders& borders);

  [[nodiscard]] int rows() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int columns() const { return columns_; }

  void draw() const;
  // At once, not with the grid; an empty text is none.
  void placeText(double across, double down, std::string_view text, const TableTextStyle& style) const;
  void placeSymbol(double across, double down, std::string_view name) const;

 private:
  struct Cell {
    std::string text;
    TableTextStyle style;
    TableBorders borders;
    double height = 0.0;
    double width = 0.0;
    Point offset;  // of its top left corner from the origin
  };

  Cell& cell(int row, int column) { return rows_.at(static_cast<size_t>(row)).at(static_cast<size_t>(column)); }
  void layOut();
  [[nodiscard]] Point at(double across, double down) const;
  void drawEdges(const Cell& cell) const;
  void drawText(Point at, std::string_view text, const TableTextStyle& style, int justification) const;

  CCadWindow* view_;
  int layer_;
  Point origin_;
  double sign_ = 1.0;  // of what runs to the right and down on paper, in the drawing
  std::string kind_;
  int framePen_ = 1;
  int frameLinetype_ = 1;
  int columns_;
  std::vector<std::vector<Cell>> rows_;
};

}  // namespace ardenix::survey
