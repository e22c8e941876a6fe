#include "survey/sectional/sectional_commands.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "frame/drafting/macro_texts.h"
#include "survey/figure_tracing.h"
#include "survey/sectional/exclusive_area.h"
#include "survey/sectional/insert_dialog.h"
#include "survey/sectional/outline_report.h"
#include "survey/sectional/section_manager.h"
#include "survey/setup_dialog.h"

namespace ardenix::survey {

void setUpSectionalPlans(const StartedJob& started) {
  SectionalPlanJob& job = started.job;
  if (SetupDialog(SurveyMode::kSectionalPlan, job.view(), job.services()).run()) { job.reloadFloorNames(); }
  job.view().SetFocus();
}

void manageSections(SectionalPlanJob& job) {
  if (job.begin()) { SectionManager(job).run(); }
}

// ---- Tracing ----------------------------------------------------------------------------------------------------

namespace {

void beginFigure(CCadWindow& view, int pen) {
  view.gsExecuteMacro(macroText::plainLine(pen));
  view.gsClearWorkSpace();
  view.gsStartPat(macroText::kPolyline);
  view.gsExecuteMacro(macroText::kNoWidth);
  view.gsEndFunc();
}

// Whole square metres of a figure in drawing units; a hair below a whole number is that number.
int floorAreaOf(const Figure& figure, double millimetresAUnit) {
  constexpr double kMillimetresAMetre = 1000.0;
  constexpr double kHair = 1e-6;
  constexpr double kTooLarge = 1e9;
  const double metres = millimetresAUnit / kMillimetresAMetre;
  return static_cast<int>(std::floor(std::min(areaOf(figure) * metres * metres, kTooLarge) + kHair));
}

// The first corner stands again at the end.
std::vector<Point> closedOutline(const Figure& figure) {
  std::vector<Point> points;
  points.reserve(figure.size() + 1);
  for (const Side& side : figure) { points.push_back(side.from); }
  points.push_back(figure.front().from);
  return points;
}

std::optional<TracedFigure> traceOutline(CCadWindow& view, int pen) {
  constexpr std::string_view kPrompt = "Trace around figure (ending on first point)";
  return traceFigure(view, {.firstPrompt = kPrompt,
                            .nextPrompt = kPrompt,
                            .nextLabel = nullptr,
                            .pen = pen,
                            .closingDistance = 0.05,
                            .fewestSides = 2,
                            .snaps = false,
                            .tellsRepeats = true});
}

// Nothing where the user leaves the choice.
std::optional<bool> tracesExclusiveArea(SectionalPlanJob& job) {
  if (!job.settings().options().exclusiveAreas) { return false; }
  const int chosen = job.view().gsSubMenu("Section,Exclusive use area");
  return chosen > 0 ? std::optional(chosen == 2) : std::nullopt;
}

void addSection(SectionalPlanJob& job, std::vector<Point> outline, int area) {
  const auto section = InsertDialog(job).insert(job.services().mainFrame, area);
  if (!section) { return; }
  job.sections.addOutline({*section, std::move(outline)});
  if (job.settings().options().checkOutlines) { tellOfFaultsOf(job, *section); }
}

}  // namespace

void traceSection(SectionalPlanJob& job) {
  if (!job.begin()) { return; }
  const auto exclusive = tracesExclusiveArea(job);
  if (!exclusive) { return; }
  CCadWindow& view = job.view();
  const int pen = job.settings().options().tracePen;
  beginFigure(view, pen);
  const auto traced = traceOutline(view, pen);
  if (!traced) { return; }
  const Figure& figure = traced->figure;
  if (crossingSides(figure)) { view.gsSetStatus("The outline crosses itself; its area is the sum of its parts."); }
  const int area = floorAreaOf(figure, job.unitFactor());
  if (*exclusive) { return addExclusiveArea(job, {.area = area, .points = closedOutline(figure)}); }
  addSection(job, closedOutline(figure), area);
}

}  // namespace ardenix::survey
