#include "host/scripts/dialog_answers.h"

#include <array>

#include "host/core/text_encoding.h"
#include "host/window/control_text.h"

namespace brevan {

namespace {

using Refusal = DialogSession::Refusal;

std::string shownAddresses(dialog::Dialog& dialog) {
  std::string all;
  for (int index = 0; index < static_cast<int>(dialog.controls().size()); ++index) {
    if (!takesFocus(dialog.control(index).state)) { continue; }
    all += (all.empty() ? "" : ", ") + ('"' + toUtf8(addressOf(dialog, index)) + '"');
  }
  return all;
}

Refusal setValue(const DialogStep& step) {
  std::string text = step.cursor.string(step.statement, 2);
  for (size_t line = 3; line < step.statement.words.size(); ++line) {
    text += '\n' + step.cursor.string(step.statement, line);
  }
  return step.session.setText(step.control(1), text);
}
Refusal typeKeys(const DialogStep& step) {
  return step.session.typeText(step.control(1), step.cursor.string(step.statement, 2));
}
Refusal spinArrow(const DialogStep& step) {
  const std::string& way = step.cursor.string(step.statement, 2);
  if (way != "up" && way != "down") { step.cursor.fail(step.statement, "spin expects up or down, got " + toUtf8(way)); }
  return step.session.spin(step.control(1), way == "up");
}
Refusal pickItem(const DialogStep& step) {
  return step.session.choose(step.control(1), step.cursor.string(step.statement, 2));
}
Refusal selectItems(const DialogStep& step) {
  std::vector<std::string> items;
  for (size_t word = 2; word < step.statement.words.size(); ++word) {
    items.push_back(step.statement.words[word].text);
  }
  return step.session.chooseSeveral(step.control(1), items);
}
Refusal checkBox(const DialogStep& step) { return step.session.check(step.control(1), true); }
Refusal uncheckBox(const DialogStep& step) { return step.session.check(step.control(1), false); }
Refusal focusControl(const DialogStep& step) { return step.session.focus(step.control(1)); }
Refusal leaveControl(const DialogStep& step) { return step.session.leave(); }
Refusal editCell(const DialogStep& step) {
  return step.session.editCell(step.control(1), step.cursor.integer(step.statement, 2),
                               step.cursor.string(step.statement, 3), step.cursor.string(step.statement, 4));
}
Refusal click(const DialogStep& step, DialogSession::Click kind) {
  const std::string column = step.statement.words.size() > 3 ? step.cursor.string(step.statement, 3) : "";
  return step.session.clickCell(step.control(1), step.cursor.integer(step.statement, 2), column, kind);
}
Refusal clickCell(const DialogStep& step) { return click(step, DialogSession::Click::kClick); }
Refusal rightClickCell(const DialogStep& step) { return click(step, DialogSession::Click::kRight); }
Refusal pressControl(const DialogStep& step) {
  if (step.statement.words.size() > 2) { return click(step, DialogSession::Click::kPress); }
  return step.session.press(step.control(1));
}
Refusal setWidth(const DialogStep& step) {
  return step.session.setColumnWidth(step.control(1), step.cursor.string(step.statement, 2),
                                     step.cursor.integer(step.statement, 3));
}
Refusal goToTab(const DialogStep& step) {
  const std::string& page = step.cursor.string(step.statement, 1);
  for (int index = 0; index < static_cast<int>(step.dialog.controls().size()); ++index) {
    if (std::holds_alternative<dialog::Tabs>(step.dialog.control(index).state)) {
      return step.session.choose(index, page);
    }
  }
  return "the dialog has no tabs";
}
Refusal chooseMenu(const DialogStep& step) { return step.session.chooseMenu(step.cursor.string(step.statement, 1)); }
Refusal askHelp(const DialogStep& step) {
  step.session.help(step.statement.words.size() > 1 ? step.control(1) : step.dialog.focus());
  return std::nullopt;
}
Refusal closeDialog(const DialogStep& step) {
  step.session.cancel();
  return std::nullopt;
}

// The text of the cell in a row, counted from 1, and column; nothing where there is no such cell.
std::optional<std::string> cellText(const dialog::Grid& grid, int row, const std::string& column) {
  if (row < 1 || row > static_cast<int>(grid.rows.size())) { return std::nullopt; }
  const auto& cells = grid.rows[static_cast<size_t>(row) - 1];
  for (size_t i = 0; i < cells.size() && i < grid.columns.size(); ++i) {
    if (equalWithoutCase(grid.columns[i].title, column)) { return cells[i].text; }
  }
  return std::nullopt;
}

constexpr auto kAnswers = std::to_array<DialogAnswer>({
    {"set", 3, kAnyNumberOfWords, setValue},  // a multi-line text: a word a line
    {"type", 3, 3, typeKeys},
    {"spin", 3, 3, spinArrow},
    {"pick", 3, 3, pickItem},
    {"select", 2, 1000, selectItems},
    {"check", 2, 2, checkBox},
    {"uncheck", 2, 2, uncheckBox},
    {"focus", 2, 2, focusControl},
    {"leave", 1, 1, leaveControl},
    {"cell", 5, 5, editCell},
    {"click", 3, 4, clickCell},
    {"rightclick", 3, 4, rightClickCell},
    {"press", 2, 4, pressControl},
    {"width", 4, 4, setWidth},
    {"tab", 2, 2, goToTab},
    {"menu", 2, 2, chooseMenu},
    {"help", 1, 2, askHelp},
    {"close", 1, 1, closeDialog},
});

bool sameValue(const std::string& shown, const ScriptWord& expected) {
  if (shown == expected.text) { return true; }
  const auto number = numberText::parseTyped(shown);
  const auto wanted = numberText::parseDouble(expected.text);
  return number && wanted && *number == *wanted;
}

}  // namespace

int DialogStep::control(size_t word) const {
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

DialogSession::Refusal DialogAnswer::operate(const DialogStep& step) const {
  step.cursor.expectWords(step.statement, least, most);
  return run(step);
}

const DialogAnswer* dialogAnswer(std::string_view name) {
  for (const DialogAnswer& answer : kAnswers) {
    if (answer.name == name) { return &answer; }
  }
  return nullptr;
}

void expectControl(const ScriptCursor& cursor, const Statement& statement, DialogSession& session,
                   dialog::Dialog& dialog) {
  cursor.expectWords(statement, 3, 1000);
  if (statement.words[1].text == "focus" && !statement.words[1].quoted) {
    const int wanted = DialogStep{cursor, statement, session, dialog}.control(2);
    if (dialog.focus() == wanted) { return; }
    const std::string found = dialog.focus() < 0 ? "nowhere" : '"' + toUtf8(addressOf(dialog, dialog.focus())) + '"';
    cursor.fail(statement, "the focus is " + found + ", the script gave: " + statement.shown());
  }
  const DialogStep step{cursor, statement, session, dialog};
  const dialog::Control& control = dialog.control(step.control(1));
  if (const auto* grid = std::get_if<dialog::Grid>(&control.state); grid != nullptr && statement.words.size() == 5) {
    const auto text = cellText(*grid, cursor.integer(statement, 2), cursor.string(statement, 3));
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
    const bool shown = session.shown(step.control(1));
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
    cursor.fail(statement, "\"" + toUtf8(addressOf(dialog, step.control(1))) + "\" is \"" + toUtf8(found) +
                               "\", the script gave: " + statement.shown());
  }
}

}  // namespace brevan
