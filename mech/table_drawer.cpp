#include "mech/table_drawer.h"

#include <cmath>
#include <numeric>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/sheet_axes.h"

namespace ardenix::mech {

namespace {

// Tenths of a millimetre of a text's height, in millimetres.
constexpr double kTenths = 10.0;

// Drawing units of a millimetre to the right and up on paper, below 0 on a sheet whose axes run the other way.
double unitOnPaper(CCadWindow& view) { return paperSignOf(view) * paperMillimetre(view); }

// Where the columns of a table begin, and where the last one ends.
std::vector<double> columnEdges(double left, const std::vector<double>& widths, double unit) {
  std::vector<double> edges = {left};
  edges.reserve(widths.size() + 1);
  for (const double width : widths) { edges.push_back(edges.back() + width * unit); }
  return edges;
}

void strokeUprights(const DraftingPen& pen, const std::vector<double>& edges, double top, double bottom) {
  for (const double x : edges) { pen.line({x, top}, {x, bottom}); }
}

// A row of texts: so far from the left edges of their columns, at one height.
void writeRow(const DraftingPen& pen, const TableRow& row, const std::vector<double>& edges, Point first,
              const TextStyle& style) {
  for (size_t column = 0; column < row.size() && column + 1 < edges.size(); ++column) {
    pen.text({edges[column] + first.x, first.y}, row[column], style);
  }
}

// Writes all rows, each so far below the one before. Of a long table the user sees how far it is, and may give up.
void writeRows(CCadWindow& view, const DraftingPen& pen, const std::vector<TableRow>& rows,
               const std::vector<double>& edges, Point first, double apart, const TextStyle& style) {
  constexpr size_t kStep = 500;
  for (size_t row = 0; row < rows.size(); ++row) {
    writeRow(pen, rows[row], edges, first - Point{0.0, static_cast<double>(row) * apart}, style);
    if (rows.size() >= kStep && (row % kStep == 0 || row + 1 == rows.size())) {
      view.gsSetProgress(static_cast<int>(row) + 1, static_cast<int>(rows.size()), "Drawing table...");
    }
  }
}

// The style of the host's new texts, upright.
TextStyle defaultTextStyle(CCadWindow& view) {
  TextDefaults defaults;
  view.gsGetTextDefaultParams(defaults);
  return {.height = defaults.height,
          .justification = defaults.justification,
          .width = defaults.width == 0.0 ? 1.0 : defaults.width,
          .font = defaults.font,
          .pen = defaults.pen};
}

// Opens the group of a table; its lines are continuous and in the current pen.
DraftingPen beginTable(CCadWindow& view, std::string_view kind) {
  view.gsExecuteMacro(macroText::beginGroup(kind));
  return {view, {.pen = view.gsGetCurrPen()}};
}

void endTable(CCadWindow& view) {
  view.gsExecuteMacro(macroText::kUnnamedPattern);
  view.gsSetViewDirty(1);
  view.gsRefresh();
}

}  // namespace

// ---- Lists ----------------------------------------------------------------------------------------------------

namespace {

constexpr double kTextHeight = 1.5;  // of the host's default text
constexpr double kGap = 1.0;         // before a text, millimetres

// Millimetres of a pixel of the list.
double pixelWidth(const TextStyle& defaultText) {
  constexpr double kPixelsOfTextWidth = 5.0;
  const double width = 0.5 * defaultText.height * defaultText.width;  // of a character
  return width / kTenths / kPixelsOfTextWidth;
}

// About how much of the height a character is wide, in the usual sans serif.
double widthOf(char character) {
  constexpr double kDigit = 0.556;
  if (std::string_view("mwMW@%").find(character) != std::string_view::npos) { return 0.9; }
  if (std::string_view(" .,:;'|!ijl()[]/ftI-").find(character) != std::string_view::npos) { return 0.3; }
  const bool capital = character >= 'A' && character <= 'Z';
  return capital || (static_cast<unsigned char>(character) > 0x7F) ? 0.7 : kDigit;
}

}  // namespace

ListTable listTable(CCadWindow& view, std::string_view kind, const std::vector<int>& pixels) {
  ListTable table{.kind = kind, .widths = {}, .text = defaultTextStyle(view), .rows = {}};
  const double height = table.text.height;
  table.widths.reserve(pixels.size());
  for (const int column : pixels) { table.widths.push_back(column * pixelWidth(table.text)); }
  table.headerHeight = height * 2.0 / kTenths;
  table.rowHeight = height * 1.5 / kTenths;
  table.text.height = height * kTextHeight;
  return table;
}

int pixelsForText(CCadWindow& view, std::string_view text) {
  if (text.empty()) { return 0; }
  const TextStyle style = defaultTextStyle(view);
  const double em = style.height * kTextHeight / kTenths * style.width;
  const double width =
      std::accumulate(text.begin(), text.end(), 0.0, [](double so, char c) { return so + widthOf(c); });
  return static_cast<int>(std::ceil((kGap + width * em) / pixelWidth(style)));
}

namespace {

// Rows of a table from its top edge down, all but the first alike.
struct RowEdges {
  double origin;  // below the first row
  double height;
  [[nodiscard]] double bottomOf(size_t row) const { return origin - static_cast<double>(row) * height; }
};

void strokeFrame(const DraftingPen& pen, const std::vector<double>& edges, double top, const RowEdges& rows,
                 size_t count) {
  pen.line({edges.front(), top}, {edges.back(), top});
  for (size_t row = 0; row < count; ++row) {
    pen.line({edges.front(), rows.bottomOf(row)}, {edges.back(), rows.bottomOf(row)});
  }
  strokeUprights(pen, edges, top, rows.bottomOf(count - 1));
}

}  // namespace

void drawListTable(CCadWindow& view, const ListTable& table, Point origin) {
  const double unit = unitOnPaper(view);
  const DraftingPen pen = beginTable(view, table.kind);
  const std::vector<double> edges = columnEdges(origin.x, table.widths, unit);
  const RowEdges rows{origin.y, table.rowHeight * unit};
  if (table.frame) { strokeFrame(pen, edges, origin.y + table.headerHeight * unit, rows, table.rows.size()); }
  writeRows(view, pen, table.rows, edges, {kGap * unit, origin.y}, rows.height, table.text);
  endTable(view);
}

// ---- Grids ----------------------------------------------------------------------------------------------------

namespace {

std::vector<double> gridWidths(const std::vector<int>& pixels, double textHeight) {
  std::vector<double> widths;
  widths.reserve(pixels.size());
  for (const int column : pixels) { widths.push_back(column / 10.0 * textHeight); }
  return widths;
}

}  // namespace

void drawGridTable(CCadWindow& view, const GridTable& table, Point corner) {
  const double unit = unitOnPaper(view);
  TextStyle style = defaultTextStyle(view);
  style.justification = 1;
  style.width = 1.0;
  const double textHeight = style.height / kTenths;
  const double rowHeight = 1.5 * textHeight * unit;
  const DraftingPen pen = beginTable(view, "USER_TABLE");
  const std::vector<double> edges = columnEdges(corner.x, gridWidths(table.pixels, textHeight), unit);
  const RowEdges rows{corner.y - rowHeight, rowHeight};
  const size_t count = table.rows.size();
  strokeUprights(pen, edges, corner.y, corner.y - static_cast<double>(count) * rowHeight);
  pen.line({edges.front(), corner.y}, {edges.back(), corner.y});
  for (size_t row = 0; row < count; ++row) {
    pen.line({edges.front(), rows.bottomOf(row)}, {edges.back(), rows.bottomOf(row)});
  }
  writeRows(view, pen, table.rows, edges, {rowHeight / 4.0, rows.origin}, rowHeight, style);
  endTable(view);
}

}  // namespace ardenix::mech
