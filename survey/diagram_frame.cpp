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

void askFrameTexts(SheetWriter& sheet, const TextSheet& questions) {
  for (const KeyRow& row : questions.rows.first(questions.rows.size() - std::size(kNoteSections))) {
    askRow(sheet, questions.section, row);
  }
}

void drawNotes(SheetWriter& sheet, const TextSheet& questions) {
  auto lines = questions.rows.last(std::size(kNoteSections)).begin();
  for (const auto& [heading, wanted] : kNoteSections) {
    const KeyRow& question = *lines++;
    if (wanted != nullptr && !(sheet.job().options().*wanted)) { continue; }
    writeRow(sheet, sheet.job().textRow(kTexts, heading));
    askRowBelow(sheet, questions.section, question);
  }
}

// The row that places the data table stands among the texts, or else beside the table's columns.
TextRow tableRow(const JobSettings& job) {
  return job.textRow(job.value(kTexts, kDataTableKey).empty() ? kDataSection : kTexts, kDataTableKey);
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
  fixed("Area", [&](const std::string& postfix) { return formattedArea(areaOf(figure)) + " " + postfix; });
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

void drawDiagramFrame(SheetWriter& sheet, const Figure& figure) {
  const TextSheet& questions = textSheets(SurveyMode::kDiagram).front();
  askFrameTexts(sheet, questions);
  sheet.setLine(drawDataTable(sheet, tableRow(sheet.job()), figure));
  drawFrameLines(sheet, sheet.line());
  drawNotes(sheet, questions);
  nameFigure(sheet, figure);
  drawAdditionalTexts(sheet);
}

}  // namespace ardenix::survey
