#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/figure_arcs.h"
#include "survey/figure_tracing.h"
#include "survey/number_formats.h"
#include "survey/plan/closure_report.h"
#include "survey/plan/corner_marker.h"
#include "survey/plan/numbering_settings.h"
#include "survey/plan/plan_commands.h"
#include "survey/plan/plan_tables.h"

namespace ardenix::survey {

namespace {

using numberText::format;

// The constants of the coordinate system, asked for below the figure. Places are heights of the table's text.
struct Constants {
  std::string system;
  std::string y;
  std::string x;
};

std::string askText(CCadWindow& view, std::string_view prompt) {
  constexpr std::string_view kAnswer = "TVAR$";
  view.gsSetMacStrVar(kAnswer, "");
  view.gsExecuteMacro(macroText::enter(prompt, kAnswer));
  return textVariable(view, kAnswer);
}

// Nothing where the user gives the table up.
std::optional<Constants> askConstants(CCadWindow& view) {
  Constants constants;
  constants.system = askText(view, "Enter the Lo Coordinate System");
  constants.y = askText(view, "Enter the Y Constant");
  constants.x = askText(view, "Enter the X Constant");
  const bool givenUp = view.gsEscapePressed() != 0 && view.gsGivesUp("Give up this figure?") != 0;
  return givenUp ? std::nullopt : std::optional(constants);
}

void addCaptions(RuledTable& table, const Constants& constants) {
  table.addCaption(20.833, 1.5, "MAIN FIGURE");
  table.addCaption(31.33, 4.5, "CO-ORDINATES");
  table.addCaption(36.0, 7.5, format("Y    System: WG %s", constants.system));
  table.addCaption(16.33, 9.833, "Constant");
  table.addCaption(32.5, 9.833, constants.y);
  table.addCaption(39.666, 9.833, constants.x);
}

void addSide(RuledTable& table, const JobSettings& job, const Side& side) {
  table.addRow({side.name(), formattedNumber(side.join.distance, job.numbers()),
                formattedBearing(side.join.direction, job.numbers()).text, side.fromLabel,
                coordinateText(job, side.from.x), coordinateText(job, side.from.y)});
}

// Tells what is doubtful of a figure that is drawn all the same, and how its area stands to the erven if that is
// wanted.
void report(SheetTool& tool, const JobSettings& job, const TracedFigure& traced) {
  constexpr double kSmallestMisclosure = 0.0005;  // written with three decimals
  std::string text;
  const auto tell = [&](const std::string& sentence) {
    if (!text.empty() && !sentence.empty()) { text += ' '; }
    text += sentence;
  };
  if (const double missed = length(traced.misclosure); missed >= kSmallestMisclosure) {
    tell(format("The figure does not close by %.3f: %.3f in Y, %.3f in X.", missed, traced.misclosure.x,
                traced.misclosure.y));
  }
  if (const auto crossing = crossingSides(traced.figure)) {
    tell(format("The figure crosses itself: its sides %s and %s meet.", crossing->first->name(),
                crossing->second->name()));
  }
  if (readNumberingSettings(job.file()).check) { tell(closureReport(tool, job)); }
  if (!text.empty()) { tool.view().gsSetStatus(text); }
}

bool isFigure(CCadWindow& view, const Figure& figure) {
  if (figure.size() >= kFewestCorners) { return true; }
  ErrorMessage(format("A figure has three corners at least, this one has %d.", static_cast<int>(figure.size())), &view);
  return false;
}

// In the drawing's area unit, along the arcs that join its corners.
double areaInUnit(CCadWindow& view, const JobSettings& job, Figure figure) {
  constexpr double kMillimetresAMetre = 1000.0;
  takeArcs(view, figure);
  const double unit = job.areaUnits().code == kSquareMetres ? kMillimetresAMetre : 1.0;
  const double side = job.unitFactor() / unit;
  return areaOf(figure) * side * side;
}

void markCorners(CCadWindow& view, const CornerMarker& corners, const Figure& figure) {
  int done = 0;
  for (const Side& side : figure) {
    corners.drawCircle(side.from);
    corners.drawLabel(side.from, side.fromLabel);
    view.gsSetProgress(++done, static_cast<int>(figure.size()), "Marking corners");
  }
}

}  // namespace

void traceArea(SheetTool& tool) {
  const JobSettings* const job = tool.begin();
  if (job == nullptr) { return; }
  CCadWindow& view = tool.view();
  const CornerMarker corners(view, *job, job->options().cornerDiam);
  TableStyle style = tableStyleOf(*job, view, "Figure");
  if (!corners.mayDraw() || !mayDrawTable(view, style)) { return; }
  const auto origin = askHeadingPlace(view);
  if (!origin) { return; }
  view.gsClearWorkSpace();
  view.gsStartPat("POLY");
  const auto traced = traceFigure(view, {.nextLabel = nextDigitsThenLetters});
  view.gsStartPat("");
  if (!traced || !isFigure(view, traced->figure)) { return; }
  view.gsExecuteMacro(macroText::kAllLayersOn);
  tool.setLastFigure({nameOf(traced->figure), areaInUnit(view, *job, traced->figure)});
  const auto constants = askConstants(view);
  if (!constants) { return; }
  RuledTable table(view, figureTableForm(), std::move(style), *origin, job->paperFactor());
  addCaptions(table, *constants);
  for (const Side& side : traced->figure) { addSide(table, *job, side); }
  markCorners(view, corners, traced->figure);
  table.draw();
  report(tool, *job, *traced);
}

}  // namespace ardenix::survey
