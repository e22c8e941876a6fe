#include "host/window/dialog_operations.h"

#include <algorithm>

#include "host/window/dialog_session.h"

namespace brevan {

namespace {

using Click = DialogSession::Click;

std::string textAt(const DialogOperation& operation, size_t place) {
  return place < operation.texts.size() ? operation.texts[place] : std::string();
}

std::string lines(const DialogOperation& operation, size_t first = 0) {
  std::string all = textAt(operation, first);
  for (size_t line = first + 1; line < operation.texts.size(); ++line) { all += '\n' + operation.texts[line]; }
  return all;
}

Refusal set(DialogSession& session, const DialogOperation& operation) {
  return session.setText(operation.control, lines(operation));
}
Refusal have(DialogSession& session, const DialogOperation& operation) {
  return session.ensureText(operation.control, lines(operation));
}
Refusal type(DialogSession& session, const DialogOperation& operation) {
  return session.typeText(operation.control, textAt(operation, 0));
}
Refusal keyed(DialogSession& session, const DialogOperation& operation) {
  return session.replaceText(operation.control, lines(operation));
}
Refusal spin(DialogSession& session, const DialogOperation& operation) {
  const std::string way = textAt(operation, 0);
  if (way != "up" && way != "down") { return "spin expects up or down, got " + way; }
  return session.spin(operation.control, way == "up");
}
Refusal pick(DialogSession& session, const DialogOperation& operation) {
  return session.choose(operation.control, textAt(operation, 0));
}
Refusal select(DialogSession& session, const DialogOperation& operation) {
  return session.chooseSeveral(operation.control, operation.texts);
}
Refusal check(DialogSession& session, const DialogOperation& operation) {
  return session.check(operation.control, operation.verb == Verb::kCheck);
}
Refusal focus(DialogSession& session, const DialogOperation& operation) { return session.focus(operation.control); }
Refusal leave(DialogSession& session, const DialogOperation&) { return session.leave(); }
Refusal cell(DialogSession& session, const DialogOperation& operation) {
  return session.editCell(operation.control, operation.number.value_or(0), textAt(operation, 0), textAt(operation, 1));
}
Refusal insertRow(DialogSession& session, const DialogOperation& operation) {
  return session.insertRow(operation.control, operation.number.value_or(0));
}
Refusal paste(DialogSession& session, const DialogOperation& operation) {
  return session.paste(operation.control, operation.number.value_or(0), textAt(operation, 0), lines(operation, 1));
}

Refusal haveRow(DialogSession& session, const DialogOperation& operation) {
  return session.ensureRow(operation.control, operation.number.value_or(0), operation.texts);
}
Refusal haveRows(DialogSession& session, const DialogOperation& operation) {
  return session.ensureRowCount(operation.control, operation.number.value_or(0));
}

Refusal click(DialogSession& session, const DialogOperation& operation) {
  const Click kind = operation.verb == Verb::kClick        ? Click::kClick
                     : operation.verb == Verb::kRightClick ? Click::kRight
                     : operation.verb == Verb::kPress      ? Click::kPress
                                                           : Click::kSelect;
  return session.clickCell(operation.control, operation.number.value_or(0), textAt(operation, 0), kind);
}
// A button, or a cell where a row is given.
Refusal press(DialogSession& session, const DialogOperation& operation) {
  return operation.number ? click(session, operation) : session.press(operation.control);
}
Refusal width(DialogSession& session, const DialogOperation& operation) {
  return session.setColumnWidth(operation.control, textAt(operation, 0), operation.number.value_or(0));
}
Refusal tab(DialogSession& session, const DialogOperation& operation) { return session.goToPage(textAt(operation, 0)); }
Refusal menu(DialogSession& session, const DialogOperation& operation) {
  return session.chooseMenu(textAt(operation, 0));
}
Refusal help(DialogSession& session, const DialogOperation& operation) {
  session.help(operation.control);
  return std::nullopt;
}
Refusal close(DialogSession& session, const DialogOperation&) {
  session.cancel();
  return std::nullopt;
}

constexpr size_t kAny = OperationRow::kAnyNumber;
constexpr OperationRow::Arguments kNothing{};
constexpr OperationRow::Arguments kControl{Argument::kControl};
constexpr OperationRow::Arguments kText{Argument::kText};
constexpr OperationRow::Arguments kControlText{Argument::kControl, Argument::kText};
constexpr OperationRow::Arguments kControlNumber{Argument::kControl, Argument::kNumber};
constexpr OperationRow::Arguments kControlTextNumber{Argument::kControl, Argument::kText, Argument::kNumber};
constexpr OperationRow::Arguments kRowPlace{Argument::kControl, Argument::kNumber};
constexpr OperationRow::Arguments kCellPlace{Argument::kControl, Argument::kNumber, Argument::kText};
constexpr OperationRow::Arguments kCellText{Argument::kControl, Argument::kNumber, Argument::kText, Argument::kText};

constexpr auto kRows = std::to_array<OperationRow>({
    {Verb::kSet, "set", kControlText, 2, kAny, set},  // of a text of several lines: a word a line
    {Verb::kHave, "have", kControlText, 2, kAny, have},
    {Verb::kType, "type", kControlText, 2, 2, type},
    {Verb::kSpin, "spin", kControlText, 2, 2, spin},
    {Verb::kPick, "pick", kControlText, 2, 2, pick},
    {Verb::kSelect, "select", kControlText, 1, kAny, select},
    {Verb::kCheck, "check", kControl, 1, 1, check},
    {Verb::kUncheck, "uncheck", kControl, 1, 1, check},
    {Verb::kFocus, "focus", kControl, 1, 1, focus},
    {Verb::kLeave, "leave", kNothing, 0, 0, leave},
    {Verb::kCell, "cell", kCellText, 4, 4, cell},
    {Verb::kHaveRow, "haverow", kCellText, 4, kAny, haveRow},  // columns, each with its text
    {Verb::kHaveRows, "haverows", kControlNumber, 2, 2, haveRows},
    {Verb::kClick, "click", kCellPlace, 2, 3, click},
    {Verb::kRightClick, "rightclick", kCellPlace, 2, 3, click},
    {Verb::kPress, "press", kCellPlace, 1, 3, press},
    {Verb::kInsertRow, "insert", kRowPlace, 2, 2, insertRow},
    {Verb::kPaste, "paste", kCellText, 4, kAny, paste},  // a word a line, fields between tabs
    {Verb::kWidth, "width", kControlTextNumber, 3, 3, width},
    {Verb::kTab, "tab", kText, 1, 1, tab},
    {Verb::kMenu, "menu", kText, 1, 1, menu},
    {Verb::kHelp, "help", kControl, 0, 1, help},
    {Verb::kClose, "close", kNothing, 0, 0, close},
    {Verb::kKeyed, "type", kControlText, 2, 2, keyed},
    {Verb::kKeyedLines, "set", kControlText, 2, kAny, keyed},
    {Verb::kSelectCell, "click", kCellPlace, 2, 3, click},
});

}  // namespace

Argument OperationRow::argument(size_t place) const {
  const auto known = static_cast<size_t>(std::ranges::find(arguments, Argument::kNone) - arguments.begin());
  return known == 0 ? Argument::kNone : arguments.at(std::min(place, known - 1));
}

std::span<const OperationRow> operationRows() { return kRows; }

const OperationRow& operationRow(Verb verb) { return *std::ranges::find(kRows, verb, &OperationRow::verb); }

const OperationRow* operationNamed(std::string_view word) {
  const auto* row = std::ranges::find(kRows, word, &OperationRow::word);
  return row == kRows.end() ? nullptr : row;
}

}  // namespace brevan
