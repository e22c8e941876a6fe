#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/drafting/pen.h"
#include "mech/table_text.h"

namespace ardenix::mech {

// A table whose first row is its header, which stands above the point that the table is drawn from. Sizes are
// millimetres on paper.
struct ListTable {
  std::string_view kind;  // the name of its group
  bool frame = true;
  std::vector<double> widths;
  double headerHeight = 0.0;
  double rowHeight = 0.0;
  TextStyle text;
  std::vector<TableRow> rows;
};
// Sizes by the host's default text: columns by their widths in pixels.
ListTable listTable(CCadWindow& view, std::string_view kind, const std::vector<int>& pixels);
// How wide a column must be for a text to stand clear of the next one.
int pixelsForText(CCadWindow& view, std::string_view text);
void drawListTable(CCadWindow& view, const ListTable& table, Point origin);

// A table that hangs from its top left corner, all rows alike.
struct GridTable {
  std::vector<int> pixels;  // widths of the columns
  std::vector<TableRow> rows;
};
void drawGridTable(CCadWindow& view, const GridTable& table, Point corner);

}  // namespace ardenix::mech
