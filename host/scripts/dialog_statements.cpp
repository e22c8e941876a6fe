#include "host/scripts/dialog_statements.h"

#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/window/control_kinds.h"
#include "host/window/dialog_fields.h"

namespace brevan {

namespace {

std::string shownAddresses(dialog::Dialog& dialog) {
  std::string all;
  for (int index = 0; index < static_cast<int>(dialog.controls().size()); ++index) {
    if (!has(dialog.control(index).state, kTakesFocus)) { continue; }
    all += (all.empty() ? "" : ", ") + ('"' + toUtf8(addressOf(dialog, index)) + '"');
  }
  return all;
}

// The control that a word addresses; fails where there is none or more than one.
int addressed(const ScriptCursor& cursor, const Statement& statement, dialog::Dialog& dialog, size_t word) {
  const std::string& address = cursor.string(statement, word);
  const int found = controlAt(dialog, address);
  if (found == -2) {
    cursor.fail(statement, "several controls are called \"" + toUtf8(address) + "\": put the group before, as in " +
                               shownAddresses(dialog));
  }
  if (found < 0) {
    cursor.fail(statement, "the dialog \"" + toUtf8(dialog.title()) + "\" has no control \"" + toUtf8(address) +
                               "\", it has " + shownAddresses(dialog));
  }
  return found;
}

const std::string& textOf(const dialog::Cell& cell) { return cell.text; }
const std::string& textOf(const std::string& cell) { return cell; }

bool hasCells(const dialog::State& state) {
  return std::holds_alternative<dialog::Grid>(state) || std::holds_alternative<dialog::ColumnList>(state);
}

// The text of the cell in a row, counted from 1, and column; nothing where there is no such cell.
template <class Table>
std::optional<std::string> cellText(const Table& table, int row, const std::string& column) {
  if (row < 1 || row > static_cast<int>(table.rows.size())) { return std::nullopt; }
  const auto& cells = table.rows[static_cast<size_t>(row) - 1];
  const int place = columnNamed(table.columns, column);
  if (place < 0 || static_cast<size_t>(place) >= cells.size()) { return std::nullopt; }
  return textOf(cells[static_cast<size_t>(place)]);
}

std::optional<std::string> cellText(const dialog::State& state, int row, const std::string& column) {
  if (const auto* grid = std::get_if<dialog::Grid>(&state)) { return cellText(*grid, row, column); }
  return cellText(std::get<dialog::ColumnList>(state), row, column);
}

bool sameValue(const std::string& shown, const ScriptWord& expected) {
  if (shown == expected.text) { return true; }
  const auto number = numberText::parseTyped(shown);
  const auto wanted = numberText::parseDouble(expected.text);
  return number && wanted && *number == *wanted;
}

}  // namespace

DialogOperation readOperation(const ScriptCursor& cursor, const Statement& statement, const OperationRow& row,
                              dialog::Dialog& dialog) {
  cursor.expectWords(statement, row.least + 1, row.most == OperationRow::kAnyNumber ? row.most : row.most + 1);
  DialogOperation operation{row.verb};
  for (size_t word = 1; word < statement.words.size(); ++word) {
    switch (row.argument(word - 1)) {
      case Argument::kControl: operation.control = addressed(cursor, statement, dialog, word); break;
      case Argument::kNumber: operation.number = cursor.integer(statement, word); break;
      case Argument::kText: operation.texts.push_back(cursor.string(statement, word)); break;
      case Argument::kNone: break;
    }
  }
  return operation;
}

std::string statementOf(const DialogOperation& operation, dialog::Dialog& dialog) {
  const OperationRow& row = operationRow(operation.verb);
  std::string statement(row.word);
  size_t text = 0;
  for (size_t place = 0; place < row.most; ++place) {
    const Argument argument = row.argument(place);
    if (argument == Argument::kText && text == operation.texts.size()) { break; }
    if (argument == Argument::kControl && operation.control < 0) { break; }
    if (argument == Argument::kNumber && !operation.number && place >= row.least) { break; }
    statement += ' ';
    if (argument == Argument::kControl) { statement += scriptString(toUtf8(addressOf(dialog, operation.control))); }
    if (argument == Argument::kNumber) { statement += std::to_string(operation.number.value_or(0)); }
    if (argument == Argument::kText) { statement += scriptString(toUtf8(operation.texts[text++])); }
  }
  return statement;
}

void expectControl(const ScriptCursor& cursor, const Statement& statement, DialogSession& session,
                   dialog::Dialog& dialog) {
  cursor.expectWords(statement, 3, 1000);
  if (statement.words[1].text == "focus" && !statement.words[1].quoted) {
    const int wanted = addressed(cursor, statement, dialog, 2);
    if (dialog.focus() == wanted) { return; }
    const std::string found = dialog.focus() < 0 ? "nowhere" : '"' + toUtf8(addressOf(dialog, dialog.focus())) + '"';
    cursor.fail(statement, "the focus is " + found + ", the script gave: " + statement.shown());
  }
  const int index = addressed(cursor, statement, dialog, 1);
  const dialog::Control& control = dialog.control(index);
  if (hasCells(control.state) && statement.words.size() == 5 && statement.words[2].text != "items") {
    const auto text = cellText(control.state, cursor.integer(statement, 2), cursor.string(statement, 3));
    if (text && sameValue(*text, statement.words[4])) { return; }
    cursor.fail(statement, (text ? "the cell is \"" + toUtf8(*text) + '"' : "there is no such cell") +
                               ", the script gave: " + statement.shown());
  }
  const ScriptWord& wanted = statement.words[2];
  const std::string& state = wanted.text;
  bool holds = false;
  std::string found = valueText(control.state);
  if (!wanted.quoted && (state == "enabled" || state == "disabled")) {
    holds = control.enabled == (state == "enabled");
    found = control.enabled ? "enabled" : "disabled";
  } else if (!wanted.quoted && (state == "shown" || state == "hidden")) {
    const bool shown = session.shown(index);
    holds = shown == (state == "shown");
    found = shown ? "shown" : "hidden";
  } else if (!wanted.quoted && state == "items") {
    const std::vector<std::string> items = itemTexts(control.state);
    holds = items.size() == statement.words.size() - 3;
    found.clear();
    for (size_t i = 0; i < items.size(); ++i) {
      holds = holds && items[i] == statement.words[i + 3].text;
      found += (i == 0 ? "" : ", ") + items[i];
    }
  } else {
    const bool picture = !wanted.quoted && state == "picture";
    holds = sameValue(found, picture ? ScriptWord{cursor.string(statement, 3), true} : wanted);
  }
  if (!holds) {
    cursor.fail(statement, "\"" + toUtf8(addressOf(dialog, index)) + "\" is \"" + toUtf8(found) +
                               "\", the script gave: " + statement.shown());
  }
}

}  // namespace brevan
