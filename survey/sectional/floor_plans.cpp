#include <algorithm>
#include <cmath>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/sheet_axes.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/messages.h"
#include "survey/sectional/outline_report.h"
#include "survey/sectional/sectional_commands.h"
#include "survey/sectional/sheets.h"
#include "survey/sectional/text_dialogs.h"
#include "survey/settings_keys.h"
#include "survey/surroundings.h"
#include "survey/text_row.h"

// The traced outlines of sections on a sheet, each with its name.
namespace ardenix::survey {

namespace {

// Traced ones that the user chose; none, with a message, where there is nothing to draw.
Outlines chosenOutlines(const SectionalPlanJob& job) {
  CMDIFrameWnd* const frame = job.services().mainFrame;
  const auto& outlines = job.sections.outlines();
  if (outlines.empty()) {
    coreMessageBox(frame,
                   "There are no traced sections to plot. First use the Trace Section\nfunction to coordinate sections "
                   "for plotting.",
                   "No sections to plot", BoxIcon::kInformation, BoxButtons::kOk);
    return {};
  }
  std::vector<std::string> names;
  names.reserve(outlines.size());
  for (const SectionOutline& outline : outlines) {
    const Section& section = *job.sections.find(outline.section);
    names.push_back(numberText::format("%s %d", std::string_view(job.floorName(section.floor)), section.plainNumber()));
  }
  Outlines chosen;
  for (const size_t index : chooseSections(job.services(), std::move(names))) { chosen.push_back(&outlines[index]); }
  if (chosen.empty()) { InfoMessage("No sections selected.", frame); }
  return chosen;
}

// Exclusive use areas on the floors of the outlines.
std::vector<const ExclusiveArea*> areasBeside(const SectionalPlanJob& job, const Outlines& outlines) {
  std::vector<const ExclusiveArea*> areas;
  for (const ExclusiveArea& area : job.exclusiveAreas) {
    const auto isOnFloor = [&](const SectionOutline* each) {
      return job.sections.find(each->section)->floor == area.floor;
    };
    if (std::ranges::any_of(outlines, isOnFloor)) { areas.push_back(&area); }
  }
  return areas;
}

Extents extentsOfAll(const Outlines& outlines, const std::vector<const ExclusiveArea*>& areas) {
  Extents extents = extentsOf(outlines.front()->points);
  for (const SectionOutline* outline : outlines) { extents.add(extentsOf(outline->points)); }
  for (const ExclusiveArea* area : areas) { extents.add(extentsOf(area->points)); }
  return extents;
}

// The largest of the usual scales at which the outlines fit the sheet; nothing where none is small enough.
std::optional<double> fittingScale(const JobSettings& settings, const Extents& extents) {
  const std::string value = settings.value(kExtentSection, "FP");
  const double usableHeight =
      std::fabs(coreGetFieldDouble(value, 0.0, 2, ',') - coreGetFieldDouble(value, 0.0, 1, ','));
  const double usableWidth = settings.options().floorPlanWidth;
  const Point size = (extents.high - extents.low) * settings.unitFactor();
  for (const double scale : {50.0, 100.0, 200.0, 250.0, 500.0, 1000.0}) {
    if (size.x <= usableWidth * scale && size.y <= usableHeight * scale) { return scale; }
  }
  return std::nullopt;
}

// ---- Drawing ----------------------------------------------------------------------------------------------------

// Outlines and their labels, in the view's text style.
class FloorPlan {
 public:
  FloorPlan(SectionalSheet& sheet, const JobSettings& settings)
      : view_(sheet.view()), settings_(settings), style_(settings.textStyle()) {
    style_.justification = kCentred;
  }

  void draw(const Section& section, const SectionOutline& outline) const {
    penOf(kContinuous).path(outline.points);
    label(outline.points,
          numberText::format(section.isPart() ? "PART OF SECTION %d" : "SECTION %d", section.plainNumber()),
          section.area);
  }
  void draw(const ExclusiveArea& area) const {
    penOf(kDashed).path(area.points);
    label(area.points, area.letters, area.area);
  }

 private:
  static constexpr int kContinuous = 1;
  static constexpr int kDashed = 2;

  [[nodiscard]] DraftingPen penOf(int linetype) const {
    return {view_, {.pen = settings_.options().tracePen, .linetype = linetype}, settings_.layer()};
  }
  void label(const std::vector<Point>& closed, std::string_view name, int area) const {
    constexpr double kSpacing = 1.5;            // of the texts' height
    constexpr double kSizesAMillimetre = 10.0;  // sizes are tenths of a millimetre
    const Point at = placeOfLabel(closed);
    penOf(kContinuous).text(at, name, style_);
    if (!settings_.options().floorAreas) { return; }
    const double down = style_.height * kSpacing / kSizesAMillimetre * settings_.paperFactor();
    penOf(kContinuous)
        .text(at - Point{0.0, paperSign(settings_.parms()) * down}, numberText::format("%d m\xB2", area), style_);
  }

  CCadWindow& view_;
  const JobSettings& settings_;
  TextStyle style_;
};

// Lines and arcs of the traced drawing, in grey, on a layer of their own.
void copyFaintly(SectionalPlanJob& job, CCadWindow& onto, const Extents& extents) {
  constexpr int kGrey = 8;
  constexpr double kAround = 300.0;  // millimetres
  onto.gsExecuteMacro(macroText::newLayer("ST_PLAN"));
  const auto [low, high] = extents.grownBy(kAround / job.unitFactor());
  copyLinesInPen(job.view(), onto, {low, high}, kGrey);
  onto.gsExecuteMacro(macroText::cutAround({high.x, low.y}, {low.x, high.y}));
}

}  // namespace

bool drawFloorPlan(SectionalPlanJob& job, const Outlines& outlines, PlanAnswers& answers, std::string_view title) {
  auto sheet = SectionalSheet::open(job, SheetKind::kFloorPlan);
  if (!sheet) { return false; }
  JobSettings& settings = job.settings();
  const auto areas = areasBeside(job, outlines);
  const Extents extents = extentsOfAll(outlines, areas);
  if (settings.options().faintWalls) { copyFaintly(job, sheet->view(), extents); }
  sheet->useLayer(settings.options().figureLayer, "ST_FIGURE");
  sheet->setUp({extents.centre(), fittingScale(settings, extents)});
  const FloorPlan plan(*sheet, settings);
  for (const ExclusiveArea* area : areas) { plan.draw(*area); }
  for (const SectionOutline* outline : outlines) { plan.draw(*job.sections.find(outline->section), *outline); }
  sheet->writeFrame(answers.frame, title);
  if (!answers.notes) { answers.notes = sheet->askNotes(); }
  if (*answers.notes) { sheet->writeNotes(); }
  return true;
}

void makeFloorPlans(SectionalPlanJob& job) {
  if (!job.begin()) { return; }
  const Outlines outlines = chosenOutlines(job);
  if (outlines.empty()) { return; }
  if (job.settings().options().checkOutlines) { tellOfFaults(job, outlines); }
  PlanAnswers unasked;
  drawFloorPlan(job, outlines, unasked);
}

}  // namespace ardenix::survey
