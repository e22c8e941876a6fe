#include "survey/sheet/sheet_questions.h"

#include <algorithm>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"

namespace ardenix::survey {

namespace {

constexpr std::string_view kAnswer = "TVAR$";

bool isBlank(std::string_view answer) { return answer.empty() || answer == " "; }

}  // namespace

void SheetQuestions::add(const KeyRow& question) {
  const TextRow row = job_.textRow(section_, question.key);
  if (row.size != 0) { rows_.push_back({&question, row, {}}); }
}

std::string SheetQuestions::answerTo(const AnsweredRow& asked) const {
  view_.gsSetMacStrVar(kAnswer, asked.row.text);
  view_.gsExecuteMacro(macroText::enter(asked.question->prompt, kAnswer));
  return textVariable(view_, kAnswer);
}

void SheetQuestions::askRow(AnsweredRow& asked) const {
  if (asked.question->most == 1) {
    asked.answers = {answerTo(asked)};
    return;
  }
  for (int n = 0; n < asked.question->most; ++n) {
    std::string answer = answerTo(asked);
    if (isBlank(answer)) { return; }
    asked.answers.push_back(std::move(answer));
  }
}

void SheetQuestions::ask() {
  for (AnsweredRow& row : rows_) { askRow(row); }
}

std::optional<AnsweredRow> SheetQuestions::answered(const KeyRow& question) const {
  const auto found = std::ranges::find(rows_, &question, &AnsweredRow::question);
  if (found == rows_.end() || found->answers.empty()) { return std::nullopt; }
  return *found;
}

void writeAnswers(SheetWriter& sheet, const AnsweredRow& answered) {
  const TextRow& row = answered.row;
  Point place = sheet.placeBelow(answered.question->belowTop ? sheet.origin().y : sheet.line(), row);
  for (const std::string& answer : answered.answers) {
    sheet.write(row, place, answer);
    place.y += sheet.nextLine(row);
  }
}

void writeRow(SheetWriter& sheet, const TextRow& row) { writeRow(sheet, row, row.text); }

void writeRow(SheetWriter& sheet, const TextRow& row, std::string_view text) {
  if (row.size != 0) { sheet.write(row, sheet.placeOf(row), text); }
}

}  // namespace ardenix::survey
