#include "survey/sheet/sheet_questions.h"

#include <algorithm>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

constexpr std::string_view kAnswer = "TVAR$";

bool isBlank(std::string_view answer) { return answer.empty() || answer == " "; }

// While it lives, prompts may be left backwards.
class BackAllowed {
 public:
  explicit BackAllowed(CCadWindow& view) : view_(view) { view_.gsAllowBack(1); }
  BackAllowed(const BackAllowed&) = delete;
  BackAllowed& operator=(const BackAllowed&) = delete;
  ~BackAllowed() { view_.gsAllowBack(0); }

 private:
  CCadWindow& view_;
};

}  // namespace

void SheetQuestions::add(const KeyRow& question) {
  const TextRow row = job_.textRow(section_, question.key);
  if (row.size != 0) { rows_.push_back({&question, row, {}}); }
}

std::string SheetQuestions::ask(const AnsweredRow& row, std::string_view offered) const {
  view_.gsSetMacStrVar(kAnswer, offered);
  view_.gsExecuteMacro(macroText::enter(row.question->prompt, kAnswer));
  return textVariable(view_, kAnswer);
}

// The row that is asked for after an answer: the same once more, or the next.
size_t SheetQuestions::rowAfter(const Answer& given, int answersBefore) const {
  const int most = rows_[given.row].question->most;
  const bool more = most > 1 && !isBlank(given.text) && answersBefore + 1 < most;
  return more ? given.row : given.row + 1;
}

bool SheetQuestions::isGivenUp(std::string_view what) {
  if (askedToGiveUp_ || view_.gsEscapePressed() == 0) { return false; }
  askedToGiveUp_ = true;
  return view_.gsGivesUp(numberText::format("Give up %s?", what)) != 0;
}

bool SheetQuestions::ask(std::string_view what) {
  const BackAllowed back(view_);
  std::vector<Answer> given;
  std::optional<std::string> typedBefore;
  for (size_t row = 0; row < rows_.size();) {
    const auto ofRow = [row](const Answer& answer) { return answer.row == row; };
    const auto answersBefore = static_cast<int>(std::ranges::count_if(given, ofRow));
    const std::string offered = typedBefore.value_or(answersBefore == 0 ? rows_[row].row.text : std::string());
    typedBefore.reset();
    Answer answer{row, ask(rows_[row], offered)};
    if (isGivenUp(what)) { return false; }
    if (view_.gsBackPressed() == 0) {
      row = rowAfter(answer, answersBefore);
      given.push_back(std::move(answer));
    } else if (!given.empty()) {
      row = given.back().row;
      typedBefore = std::move(given.back().text);
      given.pop_back();
    }
  }
  for (Answer& answer : given) {
    AnsweredRow& row = rows_[answer.row];
    if (row.question->most == 1 || !isBlank(answer.text)) { row.answers.push_back(std::move(answer.text)); }
  }
  return true;
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
