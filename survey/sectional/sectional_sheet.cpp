#include "survey/sectional/sectional_sheet.h"

#include <array>
#include <vector>

#include "frame/drafting/macro_texts.h"
#include "frame/messages.h"
#include "survey/number_formats.h"
#include "survey/sectional/text_dialogs.h"
#include "survey/settings_keys.h"
#include "survey/sheet/sheet_questions.h"
#include "survey/sheet/sheet_window.h"

namespace ardenix::survey {

namespace {

constexpr std::string_view kPlanSection = "PLANS";

struct SheetForm {
  std::string_view title;  // of the dialog that asks for its texts, less " Text"
  size_t texts;            // the first rows of its section that its frame shows
};
// The last two rows but one of a plan place its tables; the quota sheet shows no scale.
constexpr std::array<SheetForm, 4> kForms = {{{"Sheet 1", 14}, {"Block Plan", 6}, {"Floor Plan", 6}, {"PQ Sheet", 5}}};

const SheetForm& formOf(SheetKind kind) { return kForms.at(static_cast<size_t>(kind)); }

const TextSheet& rowsOf(SheetKind kind) {
  return textSheets(SurveyMode::kSectionalPlan)[kind == SheetKind::kSheet1 ? 0 : 1];
}

constexpr size_t kScaleParameter = 1;

}  // namespace

std::optional<SectionalSheet> SectionalSheet::open(SectionalPlanJob& job, SheetKind kind) {
  CCadWindow* const view = openSheetWindow(job.settings(), job.view(), *job.services().mainFrame);
  if (view == nullptr) { return std::nullopt; }
  return SectionalSheet(job, kind, *view);
}

void SectionalSheet::setUp(const Setup& setup) {
  JobSettings& settings = job_.settings();
  if (setup.scale) {
    DrawingParms parms = settings.parms();
    parms.p[kScaleParameter] = *setup.scale;
    view_.gsSetDrawingParms(parms);
  }
  settings.readScale(view_);
  extents_ = insertTemplate(settings, view_, settings.templates().at(static_cast<size_t>(kind_)), setup.middle);
  view_.gsZoomAll();
  view_.gsSetCurrCoord(setup.middle.x, setup.middle.y);
  view_.gsExecuteMacro(macroText::kHome);
  view_.gsExecuteMacro(macroText::kPortrait);
  view_.gsExecuteMacro(macroText::newScale(setup.middle));
  writer_.emplace(view_, settings, topRightOnPaper(settings, extents_));
}

void SectionalSheet::useLayer(const std::string& named, std::string_view otherwise) {
  view_.gsExecuteMacro(macroText::newLayer(named.empty() ? otherwise : std::string_view(named)));
  job_.settings().setLayer(view_.gsGetCurrentLayer());
}

void SectionalSheet::useFrameLayer() { useLayer(job_.settings().options().frameLayer, "ST_FRAMETXT"); }

// ---- Texts ------------------------------------------------------------------------------------------------------

void SectionalSheet::writeFrame() {
  const TextSheet& sheet = rowsOf(kind_);
  const auto keys = sheet.rows.first(formOf(kind_).texts);
  std::vector<TextRow> rows;
  std::vector<LabelledText> texts;
  for (const KeyRow& key : keys) {
    rows.push_back(job_.settings().textRow(sheet.section, key.key));
    texts.push_back({key.label, rows.back().size == 0 ? "" : rows.back().text});
  }
  if (!askTexts(job_.services(), std::string(formOf(kind_).title) + " Text", texts)) { return; }
  useFrameLayer();
  for (size_t row = 0; row < rows.size(); ++row) {
    if (rows[row].size == 0) { continue; }
    writeRow(*writer_, rows[row], withScale(texts[row].text, job_.settings().scale()));
  }
}

void SectionalSheet::writeNotes() {
  if (!askNotes(job_.services(), job_.notes)) { return; }
  TextRow row = job_.settings().textRow(kPlanSection, "Notes");
  if (row.size == 0) { return; }
  useFrameLayer();
  constexpr int kLeft = 1;
  Point at = writer_->placeOf(row);
  for (const std::string& line : linesOf(job_.notes)) {
    writer_->write(row, at, line, kLeft);
    at.y += writer_->nextLine(row);
  }
}

bool mayListSections(const SectionalPlanJob& job) {
  return !job.sections.empty() || ask(job.services().mainFrame,
                                      "There are no sections in the Section Manager to list.\nYou should first use the "
                                      "Trace Section function or "
                                      "manually \ninsert new sections.\nDo you still want to continue?",
                                      "No sections to plot");
}

}  // namespace ardenix::survey
