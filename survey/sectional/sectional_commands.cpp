#include "survey/sectional/sectional_commands.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "frame/drafting/macro_texts.h"
#include "survey/figure.h"
#include "survey/sectional/insert_dialog.h"
#include "survey/sectional/section_manager.h"
#include "survey/sectional/section_tracing.h"
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

// Whole square metres of corners in drawing units; a hair below a whole number is that number.
int floorAreaOf(const std::vector<Point>& corners, double millimetresAUnit) {
  constexpr double kMillimetresAMetre = 1000.0;
  constexpr double kHair = 1e-6;
  constexpr double kTooLarge = 1e9;
  const double metres = millimetresAUnit / kMillimetresAMetre;
  return static_cast<int>(std::floor(std::min(areaOf(corners) * metres * metres, kTooLarge) + kHair));
}

bool crossesItself(const std::vector<Point>& corners) {
  Figure figure;
  figure.reserve(corners.size());
  for (size_t n = 0; n < corners.size(); ++n) {
    figure.emplace_back("", corners[n], "", corners[(n + 1) % corners.size()]);
  }
  return crossingSides(figure).has_value();
}

}  // namespace

void traceSection(SectionalPlanJob& job) {
  if (!job.begin()) { return; }
  CCadWindow& view = job.view();
  const int pen = job.settings().options().tracePen;
  beginFigure(view, pen);
  auto corners = traceOutline(view, pen);
  if (!corners) { return; }
  if (crossesItself(*corners)) { view.gsSetStatus("The outline crosses itself; its area is the sum of its parts."); }
  const int area = floorAreaOf(*corners, job.settings().unitFactor());
  const auto section = InsertDialog(job).insert(job.services().mainFrame, area);
  if (!section) { return; }
  corners->push_back(corners->front());
  job.sections.addOutline({*section, std::move(*corners)});
}

}  // namespace ardenix::survey
