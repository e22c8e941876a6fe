#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/dialog_description.h"
#include "host/window/dialog_operations.h"
#include "host/window/events.h"
#include "host/window/user.h"

namespace brevan {

// A dialog in use. Every edit, by a person at the desktop or by a script, comes through here: the data
// changes first, then the rule runs. An operation that the dialog does not take returns why and changes
// nothing; a refused field keeps the focus.
class DialogSession : public dialog::Presenter {
 public:
  using Refusal = brevan::Refusal;

  DialogSession(dialog::Dialog& dialog, User& user, EventSink* events);
  ~DialogSession() override;

  // Carries out any of the operations below by its row.
  Refusal perform(const DialogOperation& operation);

  // Runs the opening rule and gives the first control the focus.
  void open();
  [[nodiscard]] bool closed() const { return dialog_.closed(); }
  [[nodiscard]] bool accepted() const { return dialog_.accepted(); }
  // Neither the control nor a group around it is hidden, nor on another page.
  [[nodiscard]] bool shown(int control) const;

  // Text fields, number fields, editable lists. `setText` replaces the contents at once and leaves the field;
  // `typeText` replaces them key by key and stays in it.
  Refusal setText(int control, const std::string& text);
  // Gives a control of any kind that has a value this one, on whatever page it is; one that has it is left alone.
  Refusal ensureText(int control, const std::string& text);
  Refusal typeText(int control, const std::string& text);
  // What the field holds after a key, as the desktop tells it; the focus stays.
  Refusal replaceText(int control, const std::string& text);
  // One step of a number field's arrows; stays within the range.
  Refusal spin(int control, bool up);
  // A check box's mark; a radio group's, list's, tab's entry by its text; a line type by its number.
  Refusal check(int control, bool checked);
  Refusal choose(int control, const std::string& item);
  Refusal goToPage(const std::string& page);
  Refusal chooseSeveral(int control, const std::vector<std::string>& items);
  // A button, or a pen button, which opens the pen chooser.
  Refusal press(int control);
  // An entry of the dialog's menu bar, levels separated by "/".
  Refusal chooseMenu(const std::string& path);
  // Gives the cells of a row the texts that follow their columns' names, and a grid so many rows. What is so already is
  // left alone.
  Refusal ensureRow(int grid, int row, const std::vector<std::string>& cells);
  Refusal ensureRowCount(int grid, int rows);
  Refusal editCell(int grid, int row, const std::string& column, const std::string& text);
  enum class Click { kSelect, kClick, kPress, kRight };
  // kSelect makes the cell current, as the keyboard does; kClick is the mouse on it.
  Refusal clickCell(int grid, int row, const std::string& column, Click click);
  // The Insert key in a row of a grid.
  Refusal insertRow(int grid, int row);
  // What a spreadsheet copies, lines of fields between tabs, from a cell of a grid on; all of it or nothing.
  Refusal paste(int grid, int row, const std::string& column, const std::string& text);
  Refusal setColumnWidth(int list, const std::string& column, int pixels);

  Refusal focus(int control);
  // Leaves the field in focus; refused while its text is out of range.
  Refusal leave();
  Refusal accept();
  void cancel();
  // Shows the help of a control, or of the one in focus for -1.
  void help(int control);

  // ---- dialog::Presenter, for those who show nothing ------------------------------------------------------
  void controlChanged(int) override {}
  void groupChanged(int) override {}
  void focusMoved(int control, bool selectAll) override;
  void titleChanged() override {}

 private:
  // Why a control cannot be operated: hidden, disabled, or of a kind that takes no input.
  Refusal inoperable(int control);
  Refusal showPageOf(int control);
  Refusal ensureCell(int grid, int row, const std::string& column, const std::string& text);
  void edited(int control);
  // Runs the rule of an edit, the data and what shows them having changed.
  void tellEdited(int control);
  [[nodiscard]] std::string named(int control);

  dialog::Dialog& dialog_;
  User& user_;
  EventSink* events_;
};

}  // namespace brevan
