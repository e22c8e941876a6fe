#include "survey/sectional/sectional_sheet.h"

#include <array>
#include <span>
#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/host/number_text.h"
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

std::span<const KeyRow> frameRows(SheetKind kind) { return rowsOf(kind).rows.first(formOf(kind).texts); }

constexpr size_t kScaleParameter = 1;

// The frame of an upright A4 sheet.
Extents uprightA4(const JobSettings& settings, Point middle) {
  const Point half = Point{190.0, 277.0} / 2.0 * settings.paperFactor();
  return {middle - half, middle + half};
}

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
  fitPaper(uprightA4(settings, setup.middle));  // the sheet where there is no template
  extents_ = insertTemplate(settings, view_, settings.templates().at(static_cast<size_t>(kind_)), setup.middle);
  view_.gsZoomAll();
  view_.gsSetCurrCoord(setup.middle.x, setup.middle.y);
  view_.gsExecuteMacro(macroText::kHome);
  view_.gsExecuteMacro(isUpright() ? macroText::kPortrait : macroText::kLandscape);
  view_.gsExecuteMacro(macroText::newScale(setup.middle));
  fitPaper(extents_);
  writer_.emplace(view_, settings, topRightOnPaper(settings, extents_));
}

void SectionalSheet::fitPaper(const Extents& held) {
  view_.gsFitPaper(held.low.x, held.low.y, held.high.x, held.high.y);
}

void SectionalSheet::useLayer(const std::string& named, std::string_view otherwise) {
  view_.gsExecuteMacro(macroText::newLayer(named.empty() ? otherwise : std::string_view(named)));
  job_.settings().setLayer(view_.gsGetCurrentLayer());
}

void SectionalSheet::useFrameLayer() { useLayer(job_.settings().options().frameLayer, "ST_FRAMETXT"); }

// ---- Texts ------------------------------------------------------------------------------------------------------

std::optional<std::string> SectionalSheet::given(size_t row, std::string_view title) const {
  constexpr size_t kNumberRow = 0;
  constexpr size_t kTitleRow = 2;  // of plans
  if (row == kNumberRow && job_.sheet.of > 0) {
    return numberText::format("Sheet %d of %d", job_.sheet.number, job_.sheet.of);
  }
  if (row == kTitleRow && !title.empty()) { return std::string(title); }
  return std::nullopt;
}

std::optional<FrameTexts> SectionalSheet::askFrame(std::string_view title) const {
  std::vector<LabelledText> texts;
  for (const KeyRow& key : frameRows(kind_)) {
    const TextRow row = job_.settings().textRow(rowsOf(kind_).section, key.key);
    texts.push_back({key.label, row.size == 0 ? "" : given(texts.size(), title).value_or(row.text)});
  }
  if (!askTexts(job_.services(), std::string(formOf(kind_).title) + " Text", texts)) { return std::nullopt; }
  FrameTexts entered;
  entered.reserve(texts.size());
  for (LabelledText& text : texts) { entered.push_back(std::move(text.text)); }
  return entered;
}

void SectionalSheet::writeFrame(FrameAnswer& answer, std::string_view title) {
  const bool again = answer.has_value();
  if (!again) { answer = askFrame(title); }
  if (!*answer) { return; }
  useFrameLayer();
  const FrameTexts& texts = **answer;
  for (size_t n = 0; n < texts.size(); ++n) {
    const TextRow row = job_.settings().textRow(rowsOf(kind_).section, frameRows(kind_)[n].key);
    if (row.size == 0) { continue; }
    const std::string text = again ? given(n, title).value_or(texts[n]) : texts[n];
    writeRow(*writer_, row, withScale(text, job_.settings().scale()));
  }
}

bool SectionalSheet::askNotes() { return survey::askNotes(job_.services(), job_.notes); }

void SectionalSheet::writeNotes() {
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
