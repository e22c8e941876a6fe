#include "survey/sheet/sheet_questions.h"

#include <algorithm>
#include <utility>

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

int SheetQuestions::answersTo(size_t row) const {
  return static_cast<int>(std::ranges::count(given_, row, &Answer::row));
}

// What was typed before the user came back to it; a question that repeats offers its own text once.
std::string SheetQuestions::offeredFor(size_t row) {
  if (takenBack_) { return *std::exchange(takenBack_, std::nullopt); }
  return answersTo(row) == 0 ? rows_[row].row.text : std::string();
}

// The row that is asked for next: the same once more, or the one after it.
size_t SheetQuestions::take(size_t row, std::string text) {
  const bool more = rows_[row].question->most > answersTo(row) + 1 && !isBlank(text);
  given_.push_back({row, std::move(text)});
  return more ? row : row + 1;
}

// The row of the answer before, which is asked for again.
size_t SheetQuestions::takeBack(size_t row) {
  if (given_.empty()) { return row; }
  const size_t before = given_.back().row;
  takenBack_ = std::move(given_.back().text);
  given_.pop_back();
  return before;
}

bool SheetQuestions::isGivenUp(std::string_view what) {
  if (askedToGiveUp_ || view_.gsEscapePressed() == 0) { return false; }
  askedToGiveUp_ = true;
  return view_.gsGivesUp(numberText::format("Give up %s?", what)) != 0;
}

bool SheetQuestions::ask(std::string_view what) {
  const BackAllowed back(view_);
  for (size_t row = 0; row < rows_.size();) {
    std::string text = ask(rows_[row], offeredFor(row));
    if (isGivenUp(what)) { return false; }
    row = view_.gsBackPressed() == 0 ? take(row, std::move(text)) : takeBack(row);
  }
  for (Answer& answer : given_) {
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
