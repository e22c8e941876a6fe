#include <algorithm>
#include <limits>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/scratch_layer.h"
#include "frame/host/core_services.h"
#include "survey/plan/erf_sides.h"
#include "survey/plan/plan_commands.h"
#include "survey/plan/survey_dimension.h"

// Dimensions of lines that the user indicates, by their ends or by the erf they belong to.
namespace ardenix::survey {

namespace {

std::optional<Point> askPoint(CCadWindow& view, std::string_view prompt) {
  Point at;
  if (view.gsGetPointFromUser(prompt, at.x, at.y) != 0) { return std::nullopt; }
  return at;
}

std::optional<Point> askEnd(CCadWindow& view, Point start) {
  view.gsSetCurrCoord(start.x, start.y);
  view.gsSetRubberBand(1);
  const auto end = askPoint(view, "Indicate End point for Survey dimension (Space bar to stop)");
  view.gsSetRubberBand(0);
  return end;
}

// The side nearest to a point, of those that the point lies beside; nothing where it lies beside none.
const ErfSide* nearestSide(const std::vector<ErfSide>& sides, Point at) {
  const ErfSide* nearest = nullptr;
  double least = std::numeric_limits<double>::infinity();
  for (const ErfSide& side : sides) {
    const Point along = side.to - side.from;
    const double foot = dot(at - side.from, along) / dot(along, along);
    const double away = distance(at, side.from + foot * along);
    if (foot < 0.0 || foot >= 1.0 || away >= least) { continue; }
    least = away;
    nearest = &side;
  }
  return nearest;
}

void showSides(CCadWindow& view, const std::vector<ErfSide>& sides) {
  constexpr int kTemporary = 13;
  constexpr int kNormal = 10;
  constexpr int kPen = 4;
  view.gsSetDrawMode(kTemporary);
  for (const ErfSide& side : sides) { view.gsDisplayLine(side.from.x, side.from.y, side.to.x, side.to.y, kPen); }
  view.gsSetDrawMode(kNormal);
}

void dimensionSides(CCadWindow& view, const JobSettings& job, const SurveyDimensions& dimensions,
                    const std::vector<ErfSide>& sides) {
  constexpr std::string_view kPrompt = "Indicate line to dimension to the inside of the erf (Space bar to stop)";
  const bool together = job.options().dimSetting == DimensionTexts::kDistanceOnly;
  while (const auto at = askPoint(view, kPrompt)) {
    const ErfSide* const side = nearestSide(sides, *at);
    if (side == nullptr) {
      ErrorMessage("This point lies beside no line of the erf", &view);
    } else if (together) {
      dimensions.drawTogether(side->from, side->to);
    } else {
      dimensions.drawApart(side->from, side->to);
    }
  }
}

}  // namespace

void dimensionLines(SheetTool& tool) {
  const JobSettings* const job = tool.begin();
  if (job == nullptr) { return; }
  CCadWindow& view = tool.view();
  SurveyDimensions dimensions(view, *job);
  if (!dimensions.begin()) { return; }
  while (const auto start = askPoint(view, "Indicate Start point for Survey dimension (Space bar to stop)")) {
    const auto end = askEnd(view, *start);
    if (!end) { return; }
    dimensions.drawApart(*start, *end);
  }
}

void dimensionErf(SheetTool& tool) {
  const JobSettings* const job = tool.begin();
  if (job == nullptr) { return; }
  CCadWindow& view = tool.view();
  SurveyDimensions dimensions(view, *job);
  if (!dimensions.begin()) { return; }
  const ScratchLayer scratch(view, scratchNames::kSurveyDimensions);
  while (const auto at = askPoint(view, "Indicate erf to dimension. (Space bar to stop)")) {
    view.gsExecuteMacro(macroText::kClearWorkSpace);
    view.gsExecuteMacro(macroText::kSelectNew);
    const std::vector<ErfSide> sides = withoutChords(view, traceErf(view, *at));
    view.gsExecuteMacro(macroText::kSelectNewEnd);
    if (sides.empty()) {
      ErrorMessage("No closed boundary surrounds this point", &view);
      continue;
    }
    showSides(view, sides);
    dimensionSides(view, *job, dimensions, sides);
    view.gsExecuteMacro(macroText::kClearSelection);
    view.gsRefresh();
    if (view.gsEscapePressed() != 0) { return; }
  }
}

}  // namespace ardenix::survey
