#include "survey/sheet/sheet_questions.h"

#include <string>

namespace ardenix::survey {

namespace {

// One line spacing below the other, until the answer is blank.
void askLines(SheetWriter& sheet, const TextRow& row, const KeyRow& question) {
  Point place = sheet.placeOf(row);
  for (int n = 0; n < question.most; ++n) {
    const std::string answer = sheet.ask(question.prompt, row.text);
    if (answer.empty() || answer == " ") { return; }
    sheet.write(row, place, answer);
    place.y += sheet.nextLine(row);
  }
}

}  // namespace

void askRow(SheetWriter& sheet, std::string_view section, const KeyRow& question) {
  const TextRow row = sheet.job().textRow(section, question.key);
  if (row.size == 0) { return; }
  if (question.most > 1) { return askLines(sheet, row, question); }
  const double above = question.belowTop ? sheet.origin().y : sheet.line();
  sheet.write(row, sheet.placeBelow(above, row), sheet.ask(question.prompt, row.text));
}

void askRowBelow(SheetWriter& sheet, std::string_view section, const KeyRow& question) {
  TextRow row = sheet.job().textRow(section, question.key);
  row.vertical = kNextLine;
  if (row.size != 0) { askLines(sheet, row, question); }
}

void writeRow(SheetWriter& sheet, const TextRow& row) { writeRow(sheet, row, row.text); }

void writeRow(SheetWriter& sheet, const TextRow& row, std::string_view text) {
  if (row.size != 0) { sheet.write(row, sheet.placeOf(row), text); }
}

}  // namespace ardenix::survey
