#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"
#include "survey/sheet/survey_table.h"

// Tables that are a row of texts for each thing listed, under a ruled heading. All lengths of a form are heights of the
// table's text, to the right and down on paper from the top left corner of its heading.
namespace ardenix::survey {

// A cell of the heading: which of its edges are ruled, each by its letter (T, R, B, L), and what stands in it.
struct HeadingCell {
  std::string_view edges{};
  std::string_view text{};
};

struct TableColumn {
  double across = 0.0;
  int justification = 15;
};

struct TableForm {
  std::string_view kind;                 // the name of its group
  std::span<const double> widths;        // of the heading's columns
  std::span<const HeadingCell> cells;    // row by row
  std::span<const TableColumn> columns;  // of the rows below
  double headingRow = 3.0;
  double firstRow = 0.0;
  double rowStep = 1.1;
  // The grid's last row goes round the rows: it is as high as the offset after the last of them less this, and more by
  // so many steps.
  double lastRowLess = 0.0;
  int lastRowSteps = 0;
};

// Pens, height and font of a table's texts, and the layer it lies on.
struct TableStyle {
  int tablePen = 1;
  int textPen = 1;
  int height = 30;  // tenths of a millimetre on paper
  int layer = 1;    // an index
  std::string font = "Arial";
};

// Collects what a table lists and draws it as one group.
class RuledTable {
 public:
  // The factor is that of the sheet: drawing units a millimetre on paper.
  RuledTable(CCadWindow& view, const TableForm& form, TableStyle style, Point origin, double paperFactor);

  // What stands in a cell of the heading, instead of the form's text.
  void setHeading(int row, int column, std::string_view text);
  // A text at a place of its own.
  void addCaption(double across, double down, std::string_view text);
  // A text for each column, empty ones left out.
  void addRow(std::vector<std::string> texts);
  [[nodiscard]] size_t rows() const { return rows_.size(); }
  // With so many rows at most in a column; the next stands beside it under a heading of its own. 0: all in one.
  void draw(size_t rowsAColumn = 0) const;

 private:
  struct Caption {
    double across;
    double down;
    std::string text;
  };
  struct Heading {
    int row;
    int column;
    std::string text;
  };

  [[nodiscard]] TableTextStyle textStyle(int justification) const;
  [[nodiscard]] double width() const;
  [[nodiscard]] double lastRowHeight(size_t rows) const;
  [[nodiscard]] SurveyTable grid(Point origin, size_t rows) const;
  void drawRows(const SurveyTable& grid, size_t first, size_t end) const;

  CCadWindow& view_;
  const TableForm& form_;
  TableStyle style_;
  Point origin_;
  double unit_;  // the height of the texts, drawing units
  std::vector<Heading> headings_;
  std::vector<Caption> captions_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace ardenix::survey
