#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "survey/settings_keys.h"
#include "survey/sheet/sheet_writer.h"

// The texts of a sheet that settings files place by a row each. A row of size 0 is neither asked nor drawn.
namespace ardenix::survey {

// A row and what the user answered to it: one text, or several that stand a line below each other.
struct AnsweredRow {
  const KeyRow* question = nullptr;
  TextRow row;
  std::vector<std::string> answers;  // of a row that takes several without the blank that ended them
};

// Asks for rows of a section one after the other, before any of them is drawn.
class SheetQuestions {
 public:
  SheetQuestions(CCadWindow& view, const JobSettings& job, std::string_view section)
      : view_(view), job_(job), section_(section) {}

  void add(const KeyRow& question);
  // The user may go back to the question before. A question that repeats offers its text once, then nothing. After an
  // Escape the user is asked, once, whether to give up `what`: false then.
  bool ask(std::string_view what);
  // Nothing where the row was not asked or nothing was answered.
  [[nodiscard]] std::optional<AnsweredRow> answered(const KeyRow& question) const;

 private:
  struct Answer {
    size_t row;
    std::string text;
  };

  [[nodiscard]] std::string ask(const AnsweredRow& row, std::string_view offered) const;
  [[nodiscard]] int answersTo(size_t row) const;
  [[nodiscard]] std::string offeredFor(size_t row);
  size_t take(size_t row, std::string text);
  size_t takeBack(size_t row);
  [[nodiscard]] bool isGivenUp(std::string_view what);

  CCadWindow& view_;
  const JobSettings& job_;
  std::string_view section_;
  std::vector<AnsweredRow> rows_;
  std::vector<Answer> given_;  // in the order in which they were given
  std::optional<std::string> takenBack_;
  bool askedToGiveUp_ = false;
};

// Draws the answers at the row's place.
void writeAnswers(SheetWriter& sheet, const AnsweredRow& answered);

// Draws a row's text, or another text in the row's place.
void writeRow(SheetWriter& sheet, const TextRow& row);
void writeRow(SheetWriter& sheet, const TextRow& row, std::string_view text);

}  // namespace ardenix::survey
