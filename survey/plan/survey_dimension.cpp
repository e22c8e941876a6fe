#include "survey/plan/survey_dimension.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/pen.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/number_formats.h"

namespace ardenix::survey {

namespace {

using numberText::format;

constexpr double kHalfTurn = 180.0;
constexpr double kQuarter = 90.0;
constexpr double kThreeQuarters = 270.0;

// Texts read along the line, and upright: those that would stand on their heads are turned over. Along the second axis
// the way up decides that the angle cannot.
TextsAlong angleAlong(double direction, const BearingText& bearing) {
  if (bearing.zero || bearing.straight) { return {kThreeQuarters, bearing.straight}; }
  constexpr double kHair = 1e-12;
  double angle = kThreeQuarters - direction * kHalfTurn / std::numbers::pi;
  if (angle < 0.0) { angle += 2.0 * kHalfTurn; }
  const auto below = [](double limit) { return limit - (limit * kHair + kHair); };
  const bool turned = angle > below(kQuarter) && angle < below(kThreeQuarters);
  return {turned ? angle - kHalfTurn : angle, turned};
}

int lorgOf(int lorg, bool turnedOver) { return turnedOver ? kAboveLine + kBelowLine - lorg : lorg; }

double bearingSide(const JobSettings& job) {
  constexpr int kSystem = 7;
  constexpr int kOrientation = 10;
  const double* const parms = job.parms().p;
  return parms[kSystem] == 0.0 && parms[kOrientation] == 1.0 ? 1.0 : -1.0;
}

std::string distanceName(double distance) { return format("%.5f", distance); }

}  // namespace

bool swapsEnds(const JobSettings& job) {
  constexpr int kSystem = 7;
  constexpr int kOrientation = 10;
  const double* const parms = job.parms().p;
  return parms[kSystem] != 0.0 || parms[kOrientation] == 0.0;
}

SurveyDimensions::SurveyDimensions(CCadWindow& view, const JobSettings& job)
    : view_(view), job_(job), side_(bearingSide(job)) {}

bool SurveyDimensions::begin() {
  if (job_.textStyle().height <= 0.0) {
    ErrorMessage("Survey dimensions are written in the drawing's text height, which is 0.", &view_);
    return false;
  }
  layer_ = view_.gsGetLayerIndexFromName(kDimensionLayer);
  LayerDef layer;
  if (layer_ < 0) {
    const int current = view_.gsGetCurrentLayer();
    layer_ = view_.gsAddLayer(kDimensionLayer);
    view_.gsSetCurrentLayer(current);
  } else if (view_.gsGetLayerDefIndex(layer_, layer) != 0 && !layer.locked) {
    view_.gsSetLayerVisibility(layer_, 1, 0);
  }
  return mayDrawOn(view_, kDimensionLayer);
}

std::optional<SurveyDimensions::Line> SurveyDimensions::measured(Point from, Point to) const {
  if (swapsEnds(job_)) { std::swap(from, to); }
  Line line{.from = from, .to = to, .join = joinOf(from, to)};
  if (line.join.distance == 0.0) { return std::nullopt; }
  const BearingText bearing = formattedBearing(line.join.direction, job_.numbers());
  line.distance = formattedNumber(line.join.distance, job_.numbers());
  line.bearing = bearing.text;
  line.texts = angleAlong(line.join.direction, bearing);
  return line;
}

double SurveyDimensions::offsetOf(double height) const {
  constexpr double kPoint = 35.2777778;  // ten points, in tenths of a millimetre
  return height / kPoint * job_.paperFactor();
}

// So many offsets from the middle of the line, to one side of its direction.
Point SurveyDimensions::beside(const Line& line, double side, double steps) const {
  const double away = line.join.direction + side * std::numbers::pi / 2.0;
  const double distance = offsetOf(job_.textStyle().height) * steps;
  return middle(line.from, line.to) + Point{std::sin(away), std::cos(away)} * distance;
}

void SurveyDimensions::write(const Line& line, Point at, std::string_view text, int justification, double style) const {
  constexpr double kTenths = 10.0;
  TextStyle written = job_.textStyle();
  written.justification = lorgOf(justification, line.texts.turnedOver);
  written.angle = line.texts.angle * kTenths;
  written.style = style;
  DraftingPen(view_, {}, layer_).text(at, text, written);
}

void SurveyDimensions::drawOne(std::string_view parent, const std::string& pattern, const Line& line, double side,
                               const std::string& text) const {
  view_.gsExecuteMacro(macroText::parent(parent));
  view_.gsStartPat(pattern);
  write(line, beside(line, side, 1.0), text, side == side_ ? kBelowLine : kAboveLine, job_.textStyle().style);
  endDimension();
}

void SurveyDimensions::endDimension() const {
  view_.gsExecuteMacro(macroText::kRootParent);
  view_.gsStartPat("");
}

void SurveyDimensions::drawApart(Point from, Point to) const {
  const auto line = measured(from, to);
  if (!line) { return; }
  const DimensionTexts texts = job_.options().dimSetting;
  if (texts != DimensionTexts::kBearingOnly) {
    drawOne(dimensionParents::kDistance, distanceName(line->join.distance), *line, -side_, line->distance);
  }
  if (texts != DimensionTexts::kDistanceOnly) {
    drawOne(dimensionParents::kBearing, format("%.5f", line->join.direction), *line, side_, line->bearing);
  }
}

void SurveyDimensions::drawTogether(Point from, Point to, CombinedPlace place) const {
  const auto line = measured(from, to);
  if (!line) { return; }
  view_.gsExecuteMacro(macroText::parent(dimensionParents::kBoth));
  view_.gsStartPat(format("%.5f %.5f", line->join.distance, line->join.direction));
  drawTextsTogether(*line, place);
  endDimension();
}

void SurveyDimensions::drawTextsTogether(const Line& line, CombinedPlace place) const {
  constexpr double kCombined = 16.0;
  constexpr double kFarther = 5.0;
  const bool outside = place == CombinedPlace::kOutside;
  const double side = outside ? -side_ : side_;
  const int justification = outside ? kAboveLine : kBelowLine;
  const DimensionTexts texts =
      place == CombinedPlace::kDistanceOnly ? DimensionTexts::kDistanceOnly : job_.options().dimSetting;
  const bool both = texts == DimensionTexts::kBearingAndDistance;
  const std::string& single = texts == DimensionTexts::kBearingOnly ? line.bearing : line.distance;
  const Point near = beside(line, side, 1.0);
  if (!both || job_.options().multiline) {
    write(line, near, single, justification, kCombined);
    if (both) { write(line, beside(line, side, kFarther), line.bearing, justification, kCombined); }
    return;
  }
  // The distance stands next to the line.
  const auto& [first, second] =
      line.texts.turnedOver != outside ? std::tie(line.bearing, line.distance) : std::tie(line.distance, line.bearing);
  write(line, near, first + "\\n" + second, justification, kCombined);
}

double SurveyDimensions::lengthOfTexts(Point from, Point to) const {
  const auto line = measured(from, to);
  if (!line) { return 0.0; }
  constexpr double kCharacter = 0.5;  // wide, of a text's height
  constexpr double kTenths = 10.0;
  const DimensionTexts texts = job_.options().dimSetting;
  const size_t distance = texts == DimensionTexts::kBearingOnly ? 0 : line->distance.size();
  const size_t bearing = texts == DimensionTexts::kDistanceOnly ? 0 : line->bearing.size();
  return static_cast<double>(std::max(distance, bearing)) * kCharacter * job_.textStyle().height / kTenths *
         job_.paperFactor();
}

}  // namespace ardenix::survey
