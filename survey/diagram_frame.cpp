#include "survey/diagram_frame.h"

#include <string>

#include "frame/drafting/pen.h"
#include "frame/host/number_text.h"
#include "survey/diagram_table.h"
#include "survey/number_formats.h"
#include "survey/settings_keys.h"

namespace ardenix::survey {

namespace {

constexpr std::string_view kQuestions = "SG_QUESTIONS";
constexpr std::string_view kTexts = "TEXT";

struct Question {
  std::string_view key;
  std::string_view prompt;
};

// Of the erf and its survey; those on the next line stand below the sheet's top edge.
constexpr Question kTitleQuestions[] = {{"PropDescr", "Property designation"},
                                        {"Situation1", "Situation clause 1"},
                                        {"Situation2", "Situation clause 2"},
                                        {"District", "Administrative district"},
                                        {"Province", "Province"},
                                        {"SurvDate", "Survey date"},
                                        {"PLS", "PLS name"},
                                        {"SGNr", "Parent diagram number"},
                                        {"Transfer", "Parent transfer number"},
                                        {"FileNr", "SG. File No."}};
constexpr Question kCompilation = {"CompNr", "Compilation number (Blank to continue)"};
constexpr int kMostCompilations = 4;
constexpr Question kSystemQuestions[] = {{"GenPlan", "Gen. Plan number"},
                                         {"ErfNr", "Bottom right corner text"},
                                         {"LOSys", "Central meridian value"},
                                         {"YConst", "Y Constant"},
                                         {"XConst", "X Constant"}};

// A heading drawn as it stands and lines below it, asked for until a blank comes.
struct NoteSection {
  std::string_view heading;
  Question lines;
};
constexpr NoteSection kBeacons = {"Beacon", {"BDescr", "Beacon description (Blank to continue)"}};
constexpr NoteSection kServitudes = {"Serv", {"ServDet", "Servitude note (Blank to continue)"}};
constexpr NoteSection kNotes = {"Notes", {"Note", "Additional note (Blank to continue)"}};
constexpr int kNoLimit = 10'000;

void askOne(SheetWriter& sheet, const Question& question, double above) {
  const TextRow row = sheet.job().textRow(kQuestions, question.key);
  if (row.size == 0) { return; }
  sheet.write(row, sheet.placeBelow(above, row), sheet.ask(question.prompt, row.text));
}

// One line spacing below the other, until the answer is blank.
void askLines(SheetWriter& sheet, const Question& question, const TextRow& row, int most) {
  if (row.size == 0) { return; }
  Point place = sheet.placeOf(row);
  for (int n = 0; n < most; ++n) {
    const std::string answer = sheet.ask(question.prompt, row.text);
    if (answer.empty() || answer == " ") { return; }
    sheet.write(row, place, answer);
    place.y += sheet.nextLine(row);
  }
}

void writeFixed(SheetWriter& sheet, const TextRow& row, std::string_view text) {
  if (row.size != 0) { sheet.write(row, sheet.placeOf(row), text); }
}

void drawNotes(SheetWriter& sheet, const NoteSection& section) {
  const TextRow heading = sheet.job().textRow(kTexts, section.heading);
  writeFixed(sheet, heading, heading.text);
  TextRow lines = sheet.job().textRow(kQuestions, section.lines.key);
  lines.vertical = kNextLine;  // wherever the heading came to stand
  askLines(sheet, section.lines, lines, kNoLimit);
}

// The row that places the data table stands among the texts, or else beside the table's columns.
TextRow tableRow(const JobSettings& job) {
  return job.textRow(job.value(kTexts, "Data").empty() ? kDataSection : kTexts, "Data");
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
    writeFixed(sheet, row, text(row.text));
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
    const TextRow row = sheet.job().textRow(kTexts, key);
    writeFixed(sheet, row, row.text);
  }
}

}  // namespace

void drawDiagramFrame(SheetWriter& sheet, const Figure& figure) {
  for (const Question& question : kTitleQuestions) { askOne(sheet, question, sheet.origin().y); }
  askLines(sheet, kCompilation, sheet.job().textRow(kQuestions, kCompilation.key), kMostCompilations);
  for (const Question& question : kSystemQuestions) { askOne(sheet, question, sheet.line()); }
  sheet.setLine(drawDataTable(sheet, tableRow(sheet.job()), figure));
  drawFrameLines(sheet, sheet.line());
  drawNotes(sheet, kBeacons);
  if (sheet.job().options().servNotes) { drawNotes(sheet, kServitudes); }
  if (sheet.job().options().addNotes) { drawNotes(sheet, kNotes); }
  nameFigure(sheet, figure);
  drawAdditionalTexts(sheet);
}

}  // namespace ardenix::survey
