#include "survey/diagram_frame.h"

#include <string>

#include "frame/drafting/pen.h"
#include "frame/host/number_text.h"
#include "survey/diagram_table.h"
#include "survey/number_formats.h"
#include "survey/settings_keys.h"
#include "survey/sheet/sheet_questions.h"

namespace ardenix::survey {

namespace {

constexpr std::string_view kTexts = kDiagramTextSection;

// A heading as it stands with lines below it: the last rows among the questions, in this order.
struct NoteSection {
  std::string_view heading;
  bool JobOptions::*wanted;  // null: always
};
constexpr NoteSection kNoteSections[] = {
    {"Beacon", nullptr}, {"Serv", &JobOptions::servNotes}, {"Notes", &JobOptions::addNotes}};

bool isWanted(const NoteSection& section, const JobOptions& options) {
  return section.wanted == nullptr || options.*section.wanted;
}

const TextSheet& questionSheet() { return textSheets(SurveyMode::kDiagram).front(); }
std::span<const KeyRow> frameRows() {
  return questionSheet().rows.first(questionSheet().rows.size() - std::size(kNoteSections));
}
const KeyRow& rowOf(const NoteSection& section) {
  const auto index = static_cast<size_t>(&section - std::begin(kNoteSections));
  return questionSheet().rows.last(std::size(kNoteSections))[index];
}

// Nothing where the user gives the diagram up.
std::optional<SheetQuestions> askTexts(const SheetWriter& sheet) {
  SheetQuestions questions(sheet.view(), sheet.job(), questionSheet().section);
  for (const KeyRow& row : frameRows()) { questions.add(row); }
  for (const NoteSection& section : kNoteSections) {
    if (isWanted(section, sheet.job().options())) { questions.add(rowOf(section)); }
  }
  if (!questions.ask("this diagram")) { return std::nullopt; }
  return questions;
}

// Below each other, wherever the rows stand; a heading without a line below it is left out.
void drawNotes(SheetWriter& sheet, const SheetQuestions& questions) {
  for (const NoteSection& section : kNoteSections) {
    std::optional<AnsweredRow> lines = questions.answered(rowOf(section));
    if (!lines) { continue; }
    writeRow(sheet, sheet.job().textRow(kTexts, section.heading));
    lines->row.vertical = kNextLine;
    writeAnswers(sheet, *lines);
  }
}

void drawFrameLines(const SheetWriter& sheet, double tableEnd) {
  constexpr int kFrameLayer = 0;
  const auto place = [&](double horizontal, double vertical) {
    Point point = sheet.at(horizontal, vertical);
    if (vertical == kNextLine) { point.y = tableEnd; }
    return point;
  };
  for (int number = 1;; ++number) {
    const std::string value = sheet.job().value(kLineSection, numberText::format(kLineKey, number));
    if (value.empty()) { return; }
    const LineRow row = lineRowOf(value);
    const Point from = place(row.startHorizontal, row.startVertical);
    const Point to = place(row.endHorizontal, row.endVertical);
    DraftingPen(sheet.view(), {.pen = row.pen, .linetype = row.linetype}, kFrameLayer).line(from, to);
  }
}

void nameFigure(SheetWriter& sheet, const Figure& figure) {
  const auto fixed = [&sheet](std::string_view key, const auto& text) {
    const TextRow row = sheet.job().textRow(kTexts, key);
    writeRow(sheet, row, text(row.text));
  };
  fixed("Figure", [&](const std::string& prefix) { return prefix + nameOf(figure); });
  fixed("Area", [&](const std::string& postfix) {
    if (sheet.job().options().hectares) { return areaWithUnit(areaOf(figure), postfix, sheet.job().numbers()); }
    return formattedArea(areaOf(figure)) + " " + postfix;
  });
  fixed("Scale", [&](const std::string& prefix) {
    return numberText::format("%s%.0f", std::string_view(prefix), sheet.job().scale());
  });
}

void drawAdditionalTexts(SheetWriter& sheet) {
  for (int number = 1;; ++number) {
    const std::string key = numberText::format(kAdditionalText, number);
    if (!storedValue(sheet.job().file(), kTexts, key)) { return; }
    writeRow(sheet, sheet.job().textRow(kTexts, key));
  }
}

}  // namespace

bool drawDiagramFrame(SheetWriter& sheet, const Figure& figure) {
  const std::optional<SheetQuestions> questions = askTexts(sheet);
  if (!questions) { return false; }
  for (const KeyRow& row : frameRows()) {
    if (const auto answered = questions->answered(row)) { writeAnswers(sheet, *answered); }
  }
  sheet.setLine(drawDataTable(sheet, dataTableRow(sheet.job()), figure));
  drawFrameLines(sheet, sheet.line());
  drawNotes(sheet, *questions);
  nameFigure(sheet, figure);
  drawAdditionalTexts(sheet);
  return true;
}

}  // namespace ardenix::survey
