#include "host/window/dialog_session.h"

#include <algorithm>

#include "frame/host/limits.h"
#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/window/control_kinds.h"
#include "host/window/dialog_fields.h"
#include "host/window/dialog_operations.h"

namespace brevan {

using namespace dialog;

namespace {

void run(const std::function<void()>& rule) {
  if (rule) { rule(); }
}

}  // namespace

DialogSession::DialogSession(Dialog& dialog, User& user, EventSink* events)
    : dialog_(dialog), user_(user), events_(events) {
  dialog_.attach(this);
}

DialogSession::~DialogSession() { dialog_.attach(nullptr); }

void DialogSession::open() {
  dialog_.noteFocus(-1);  // a dialog that is shown again starts anew
  run(dialog_.onOpen);
  if (dialog_.focus() >= 0 || dialog_.closed()) { return; }
  for (int control = 0; control < static_cast<int>(dialog_.controls().size()); ++control) {
    if (!inoperable(control)) { return dialog_.noteFocus(control); }
  }
}

std::string DialogSession::named(int control) { return inQuotes(addressOf(dialog_, control)); }

Refusal DialogSession::perform(const DialogOperation& operation) {
  return operationRow(operation.verb).perform(*this, operation);
}

void DialogSession::edited(int control) {
  dialog_.changed(control);
  run(dialog_.control(control).onEdit);
}

namespace {

// As the field shows the number once it is left.
NumberEdit formattedAsTyped(NumberEdit edit) {
  edit.edited = false;
  edit.value = 0.0;
  if (edit.text.empty()) { return edit; }
  const double typed = *numberText::parseTyped(edit.text);
  edit.text = edit.integer ? numberText::format(edit.format, static_cast<long long>(typed))
                           : numberText::format(edit.format, typed);
  edit.value = numberText::parseTyped(edit.text).value_or(typed);
  return edit;
}

}  // namespace

// ---- Focus -----------------------------------------------------------------------------------------------

void DialogSession::focusMoved(int control, bool) {
  if (events_ != nullptr) { events_->focusMoved(addressOf(dialog_, control)); }
}

Refusal DialogSession::leave() {
  const int control = dialog_.focus();
  if (control < 0) { return std::nullopt; }
  if (auto* edit = std::get_if<NumberEdit>(&dialog_.control(control).state); edit != nullptr && edit->edited) {
    if (auto refusal = refusalOf(addressOf(dialog_, control), *edit)) { return refusal; }
    NumberEdit kept = formattedAsTyped(*edit);
    // The format may round what was typed out of the range.
    if (auto refusal = refusalOf(addressOf(dialog_, control), kept)) { return refusal; }
    *edit = std::move(kept);
    dialog_.changed(control);
  }
  dialog_.noteFocus(-1);
  run(dialog_.control(control).onLeave);
  if (dialog_.focus() >= 0) { return named(dialog_.focus()) + " has taken the focus"; }
  return std::nullopt;
}

// Operating a control begins here: what can be operated takes the focus.
Refusal DialogSession::focus(int control) {
  if (auto refusal = inoperable(control)) { return refusal; }
  if (control == dialog_.focus()) { return std::nullopt; }
  if (auto refusal = leave()) { return refusal; }
  dialog_.noteFocus(control);
  run(dialog_.control(control).onFocus);
  return std::nullopt;
}

bool DialogSession::shown(int control) const { return isShown(dialog_, control); }

Refusal DialogSession::inoperable(int control) {
  const Control& wanted = dialog_.control(control);
  if (!shown(control)) { return named(control) + " is hidden"; }
  if (!wanted.enabled) { return named(control) + " is disabled"; }
  if (!has(wanted.state, kTakesFocus)) { return notThisKind(named(control), wanted.state, "takes no input"); }
  return std::nullopt;
}

// ---- Text ------------------------------------------------------------------------------------------------

Refusal DialogSession::replaceText(int control, const std::string& text) {
  if (auto refusal = typeInto(dialog_.control(control).state, text, named(control))) { return refusal; }
  edited(control);
  return std::nullopt;
}

Refusal DialogSession::setText(int control, const std::string& text) {
  if (auto refusal = focus(control)) { return refusal; }
  const State& state = dialog_.control(control).state;
  if (std::holds_alternative<CheckBox>(state) && (text == "0" || text == "1")) { return check(control, text == "1"); }
  if (has(state, kSetChooses)) { return choose(control, text); }
  if (auto refusal = replaceText(control, text)) { return refusal; }
  return leave();
}

Refusal DialogSession::ensureText(int control, const std::string& text) {
  if (valueText(dialog_.control(control).state) == text) { return std::nullopt; }
  const auto operation = operationThatSets(control, dialog_.control(control).state, text);
  if (!operation) { return notThisKind(named(control), dialog_.control(control).state, "holds no value"); }
  if (auto refusal = showPageOf(control)) { return refusal; }
  return perform(*operation);
}

Refusal DialogSession::showPageOf(int control) {
  const std::string page = pageOf(dialog_, control);
  return page.empty() ? std::nullopt : goToPage(page);
}

Refusal DialogSession::typeText(int control, const std::string& text) {
  if (auto refusal = focus(control)) { return refusal; }
  for (size_t keys = text.empty() ? 0 : 1; keys <= text.size(); ++keys) {
    if (auto refusal = replaceText(control, text.substr(0, keys))) { return refusal; }
  }
  return std::nullopt;
}

Refusal DialogSession::spin(int control, bool up) {
  if (auto refusal = focus(control)) { return refusal; }
  auto* edit = std::get_if<NumberEdit>(&dialog_.control(control).state);
  if (edit == nullptr || !edit->spin) {
    return notThisKind(named(control), dialog_.control(control).state, "has no arrows");
  }
  const double stepped = numberText::parseTyped(edit->text).value_or(edit->value) + (up ? 1.0 : -1.0);
  const double kept = std::clamp(stepped, edit->minimum, edit->maximum);
  return replaceText(control, edit->integer ? numberText::format(edit->format, static_cast<long long>(kept))
                                            : numberText::format(edit->format, kept));
}

// ---- Choices ---------------------------------------------------------------------------------------------

Refusal DialogSession::check(int control, bool checked) {
  if (auto refusal = focus(control)) { return refusal; }
  auto* box = std::get_if<CheckBox>(&dialog_.control(control).state);
  if (box == nullptr) { return notThisKind(named(control), dialog_.control(control).state, "cannot be checked"); }
  if (box->checked == checked) { return std::nullopt; }
  box->checked = checked;
  edited(control);
  return std::nullopt;
}

Refusal DialogSession::choose(int control, const std::string& item) {
  if (auto refusal = focus(control)) { return refusal; }
  if (auto refusal = chooseEntry(dialog_.control(control).state, item, named(control))) { return refusal; }
  edited(control);
  return std::nullopt;
}

Refusal DialogSession::chooseSeveral(int control, const std::vector<std::string>& items) {
  if (auto refusal = focus(control)) { return refusal; }
  if (auto refusal = chooseEntries(dialog_.control(control).state, items, named(control))) { return refusal; }
  edited(control);
  return std::nullopt;
}

Refusal DialogSession::goToPage(const std::string& page) {
  for (int control = 0; control < static_cast<int>(dialog_.controls().size()); ++control) {
    if (std::holds_alternative<Tabs>(dialog_.control(control).state)) { return choose(control, page); }
  }
  return "the dialog has no tabs";
}

// ---- Buttons and menus -----------------------------------------------------------------------------------

Refusal DialogSession::press(int control) {
  const State& state = dialog_.control(control).state;
  const auto* button = std::get_if<Button>(&state);
  if (button != nullptr && button->role == ButtonRole::kCancel) {
    if (auto refusal = inoperable(control)) { return refusal; }
    cancel();  // without leaving the field: what it holds does not matter any more
    return std::nullopt;
  }
  if (auto refusal = focus(control)) { return refusal; }
  if (std::holds_alternative<PenButton>(state)) {
    auto& pen = std::get<PenButton>(dialog_.control(control).state);
    const auto chosen = user_.choosePen(dialog_.control(control).caption, pen.pen);
    if (events_ != nullptr) { events_->chooserAnswered("pen", chosen ? std::to_string(*chosen) : "cancel", ""); }
    if (!chosen) { return std::nullopt; }
    pen.pen = *chosen;
    edited(control);
    return std::nullopt;
  }
  if (button == nullptr) { return notThisKind(named(control), state, "cannot be pressed"); }
  if (button->role == ButtonRole::kOk) { return accept(); }
  if (button->role == ButtonRole::kHelp) {
    help(control);
    return std::nullopt;
  }
  run(dialog_.control(control).onPress);
  return std::nullopt;
}

Refusal DialogSession::accept() {
  if (auto refusal = leave()) { return refusal; }
  if (!dialog_.onOk || dialog_.onOk()) { dialog_.close(true); }
  return std::nullopt;
}

void DialogSession::cancel() {
  if (!dialog_.onCancel || dialog_.onCancel()) { dialog_.close(false); }
}

void DialogSession::help(int control) {
  if (dialog_.onHelp) { dialog_.onHelp(control >= 0 ? control : dialog_.focus()); }
}

Refusal DialogSession::chooseMenu(const std::string& path) {
  const std::vector<MenuItem>* level = nullptr;
  for (Control& control : dialog_.controls()) {
    if (const auto* bar = std::get_if<MenuBar>(&control.state)) { level = &bar->menus; }
  }
  const MenuItem* chosen = nullptr;
  for (size_t start = 0; level != nullptr && start <= path.size();) {
    const size_t end = std::min(path.find('/', start), path.size());
    const std::string name = path.substr(start, end - start);
    const auto found = std::find_if(level->begin(), level->end(), [&name](const MenuItem& item) {
      return equalWithoutCase(plainCaption(item.caption), name);
    });
    if (found == level->end()) { return "the dialog's menu has no entry " + inQuotes(path); }
    chosen = &*found;
    level = &found->items;
    start = end + 1;
  }
  if (chosen == nullptr || !chosen->action) { return "the dialog's menu has no entry " + inQuotes(path); }
  if (!chosen->enabled) { return "the menu entry " + inQuotes(path) + " is disabled"; }
  if (auto refusal = leave()) { return refusal; }
  const auto action = chosen->action;
  action();
  return std::nullopt;
}

// ---- Grids -----------------------------------------------------------------------------------------------

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
  run(dialog_.control(control).onEdit);
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
