#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

class CCadWindow;

// What each kind of control holds. Plain data: the host shows it and changes it as the user edits; the
// rules of a dialog read and change it through the handles of dialog.h.
namespace dialog {

// A static text; rules may change it.
struct Label {
  std::string text;
};

// A result shown in a field that the user can copy but not edit.
struct ReadOnlyText {
  std::string text;
};

// A number or integer edit. The range is inclusive and is checked when the user leaves an edited field;
// what does not read as a number within it is refused and the field keeps the focus.
struct NumberEdit {
  bool integer = false;
  double minimum = 0.0;
  double maximum = 0.0;
  std::string format = "%.3f";  // "%d" for integers
  std::string text;
  double value = 0.0;       // of the text as last accepted
  bool edited = false;      // the user changed the text and has not left the field since
  std::string unit{};       // stands behind the range where the dialog is described; empty for drawing units and counts
  bool spin = false;        // with arrows that step by one
  bool mayBeEmpty = false;  // no number at all is an answer, too; the value is 0 then
};

struct TextEdit {
  std::string text;
  int limit = 255;         // bytes
  bool multiline = false;  // line breaks by Ctrl+Enter, "\n" in the text
};

struct CheckBox {
  bool checked = false;
};

struct RadioItem {
  std::string caption;
  std::string toolTip;
  bool enabled = true;
};

struct RadioGroup {
  std::vector<RadioItem> items;
  int chosen = -1;  // -1: none
};

// A drop-down list; an editable one also takes any text.
struct DropDown {
  std::vector<std::string> items;
  int selected = -1;
  bool editable = false;
  std::string text;    // of an editable list
  bool typed = false;  // the user typed the text, and did not choose it
};

struct PictureItem {
  std::string caption;
  std::string picture;
};

struct PictureList {
  std::vector<PictureItem> items;
  int selected = -1;
};

struct ListBox {
  std::vector<std::string> items;
  bool multiple = false;
  std::vector<bool> selected;  // one for each item
};

struct ListColumn {
  std::string title;
  int width = 80;           // pixels; the user drags it
  bool widthCounts = true;  // shown exactly so
  std::string name{};       // its address where the title does not tell it apart; else empty
};

struct ColumnList {
  std::vector<ListColumn> columns;
  std::vector<std::vector<std::string>> rows;
  int selected = -1;
};

struct TreeNode {
  std::string caption;
  std::vector<TreeNode> children;
  bool expanded = false;
};

struct Tree {
  std::vector<TreeNode> roots;
  std::vector<int> selected;  // the child's index at each level; empty: none
};

// A button that shows a pen's colour and opens the pen chooser.
struct PenButton {
  int pen = 1;  // 1 to 256
};

// A drop-down list of the line types with their patterns; entry i is line type i + 1.
struct LineTypeList {
  int selected = 0;
};

// A named piece of vector art.
struct Picture {
  std::string name;
  int width = 100;  // dialog units, as all sizes here
  int height = 60;
};

// What a pixel canvas is painted with; whole pixels from the top left corner, y downwards, colours
// 0xRRGGBB.
class Canvas {
 public:
  enum class Stroke { kSolid, kDashDot };
  Canvas() = default;
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  virtual ~Canvas() = default;
  [[nodiscard]] virtual int width() const = 0;
  [[nodiscard]] virtual int height() const = 0;
  virtual void fill(uint32_t colour) = 0;
  virtual void line(int x1, int y1, int x2, int y2, uint32_t colour, Stroke stroke) = 0;
  virtual void circle(int x, int y, int radius, uint32_t colour) = 0;
  // A filled sector; angles in degrees counter-clockwise from the right.
  virtual void pie(int x, int y, int radius, double startAngle, double sweep, uint32_t colour) = 0;
  virtual void text(int x, int y, std::string_view text, int pixelHeight, uint32_t colour, uint32_t ground) = 0;
};

// Repainted whenever any control of the dialog changes.
struct PixelCanvas {
  int width = 0;
  int height = 0;
  std::function<void(Canvas&)> paint;
};

// A picture of the part as it would be drawn: the drawer itself runs on an off-screen view.
struct Preview {
  int width = 0;
  int height = 0;
  std::function<void(CCadWindow&)> draw;
};

enum class ButtonRole { kPlain, kOk, kCancel, kHelp };

struct Button {
  ButtonRole role = ButtonRole::kPlain;
};

struct MenuItem {
  std::string caption;  // "&" marks the mnemonic; empty: a separator
  bool enabled = true;
  bool checked = false;
  std::vector<MenuItem> items{};
  std::function<void()> action{};
  std::string toolTip{};
  std::string statusText{};  // stands in the dialog's status line while the item is chosen
};

struct MenuBar {
  std::vector<MenuItem> menus;
};

struct StatusLine {
  std::string text;
};

enum class CellKind { kText, kNumber, kInteger, kList, kEditableList, kPen, kLineType, kCheck, kFont, kBrowse };

struct Cell {
  CellKind kind = CellKind::kText;
  std::string text{};   // a check cell holds "1" or "0", a pen or line-type cell its number
  std::string whole{};  // what a browse cell holds, which it shows shortened
  bool readOnly = false;
  bool mayBeEmpty = false;  // a number, pen or line type
  double minimum = 0.0;     // of numbers
  double maximum = 0.0;
  std::string format{};              // of numbers
  std::vector<std::string> items{};  // of lists
  int limit = 0;                     // characters of a text on one line; 0: any text
  uint32_t ground = 0xFFFFFFFF;      // background 0xRRGGBB; 0xFFFFFFFF: as usual
  friend bool operator==(const Cell&, const Cell&) = default;
};

// What a cell holds, shown whole or shortened.
[[nodiscard]] inline const std::string& valueOf(const Cell& cell) {
  return cell.whole.empty() ? cell.text : cell.whole;
}

struct GridColumn {
  std::string title;
  std::string hint{};  // shown while the mouse rests on the column
  int width = 60;      // pixels
  bool widthCounts =
      false;           // shown exactly so, and not at least as wide as the title: the user dragged it or it is drawn
  std::string name{};  // its address where the title does not tell it apart; else empty
};

// What scripts call a column.
template <class Column>
[[nodiscard]] const std::string& addressOf(const Column& column) {
  return column.name.empty() ? column.title : column.name;
}

struct Grid {
  std::vector<GridColumn> columns;
  std::vector<std::string> rowHeadings;  // empty: none; else one for each row
  std::vector<std::vector<Cell>> rows;
  int currentRow = -1;
  int currentColumn = -1;
  std::function<void(int row, int column)> onCellEdit;
  std::function<void(int row, int column)> onCellPress;       // a browse cell's button, a double click
  std::function<void(int row, int column)> onCellRightClick;  // column -1: the row heading
  std::function<void(int row, int column)> onCellSelect;      // the cell became current, by mouse or keyboard
  std::function<void(int row, int column)> onCellClick;       // the mouse clicked it, after it became current
  std::function<void(int row)> onInsertRow;                   // the Insert key
  // What is pasted needs so many rows and columns: makes them. Without the rule, or where it does not, such a paste is
  // refused.
  std::function<void(size_t rows, size_t columns)> onGrow;
  std::function<void(int rows)> onRowCount;  // of a grid that has as many rows as the user wants
};

// The pages of a property sheet; controls belong to a page through their group.
struct Tabs {
  std::vector<std::string> pages;
  int current = 0;
};

using State = std::variant<Label, ReadOnlyText, NumberEdit, TextEdit, CheckBox, RadioGroup, DropDown, PictureList,
                           ListBox, ColumnList, Tree, PenButton, LineTypeList, Picture, PixelCanvas, Preview, Button,
                           MenuBar, StatusLine, Grid, Tabs>;

}  // namespace dialog
