#include "frame/drafting/target_layer.h"
#include "survey/number_formats.h"
#include "survey/plan/plan_commands.h"
#include "survey/settings_keys.h"
#include "survey/sheet/sheet_questions.h"
#include "survey/sheet/sheet_window.h"

// The sheet round a township: its border with the texts in it, and its heading.
namespace ardenix::survey {

namespace {

constexpr std::string_view kScaleKey = "Scale";  // drawn without asking

const TextSheet& headingTexts() { return textSheets(SurveyMode::kGeneralPlan).front(); }
const TextSheet& frameTexts() { return textSheets(SurveyMode::kGeneralPlan).back(); }

// Nothing where the user gives them up.
std::optional<SheetQuestions> askTexts(const SheetWriter& sheet, const TextSheet& texts, std::string_view what) {
  SheetQuestions questions(sheet.view(), sheet.job(), texts.section);
  for (const KeyRow& row : texts.rows) {
    if (row.key != kScaleKey) { questions.add(row); }
  }
  if (!questions.ask(what)) { return std::nullopt; }
  return questions;
}

void writeScale(SheetWriter& sheet, const TextSheet& texts) {
  const TextRow row = sheet.job().textRow(texts.section, kScaleKey);
  writeRow(sheet, row, numberText::format("%s%.0f", std::string_view(row.text), sheet.job().scale()));
}

void drawTexts(SheetWriter& sheet, const TextSheet& texts, std::string_view what) {
  const auto questions = askTexts(sheet, texts, what);
  if (!questions) { return; }
  for (const KeyRow& row : texts.rows) {
    if (row.key == kScaleKey) { writeScale(sheet, texts); }
    if (const auto answered = questions->answered(row)) { writeAnswers(sheet, *answered); }
  }
}

bool mayDrawOnCurrent(CCadWindow& view) { return mayDrawOn(view, view.gsGetCurrentLayerName()); }

}  // namespace

void insertBorder(SheetTool& tool) {
  JobSettings* const job = tool.begin();
  CCadWindow& view = tool.view();
  if (job == nullptr || !mayDrawOnCurrent(view)) { return; }
  const Extents border = insertTemplate(*job, view, job->titleBlock());
  view.gsFitPaper(border.low.x, border.low.y, border.high.x, border.high.y);
  SheetWriter sheet(view, *job, topRightOnPaper(*job, border));
  drawTexts(sheet, frameTexts(), "the texts of this border");
}

void insertHeading(SheetTool& tool) {
  JobSettings* const job = tool.begin();
  if (job == nullptr || !mayDrawOnCurrent(tool.view())) { return; }
  const auto place = askHeadingPlace(tool.view());
  if (!place) { return; }
  SheetWriter sheet(tool.view(), *job, *place);
  drawTexts(sheet, headingTexts(), "this heading");
}

}  // namespace ardenix::survey
