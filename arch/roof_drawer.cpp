#include "arch/roof_drawer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "arch/arch_part.h"
#include "arch/plan_geometry.h"
#include "arch/roof_line_drawer.h"
#include "arch/roof_plan.h"
#include "arch/roof_shape.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kRoofFacePrompt = "Indicate face on plan for adding roof (else spacebar to exit)";
constexpr std::string_view kElevationPrompt = "Select roof line on elevation (else spacebar to exit)";
constexpr std::string_view kRoofLinePrompt = "Select roof lines for this view (else spacebar to exit)";
constexpr std::string_view kHeightPrompt = "Select height of side gable (else spacebar for facing gable)";

constexpr std::string_view kPitchKey = "RoofPitch";
constexpr std::string_view kFromPlanKey = "FromPlan";
constexpr std::string_view kForeignLine = "This roof line does not belong to the face";

constexpr double kSquareDegrees = 90.0;
constexpr double kHalf = 180.0;

bool hasLength(const PlanLine& line) { return !nearlyEqual(line.a, line.b); }

// A line with two ends, asked for until there is one; the cursor stands on it.
std::optional<PlanLine> askLine(CCadWindow& view, std::string_view prompt) {
  return askUntil(view, prompt, [&view](Point) -> std::optional<PlanLine> {
    const auto line = jumpToLine(view);
    if (!line || hasLength(*line)) { return line; }
    tellMiss(view, "This line has no length");
    return std::nullopt;
  });
}

}  // namespace

// ---- Settings -----------------------------------------------------------------------------------------------

bool isPitch(double degreesMinutesSeconds) {
  constexpr double kSixty = 60.0;
  constexpr double kHundred = 100.0;
  constexpr double kRounding = 1e-7;
  if (degreesMinutesSeconds <= 0.0 || degreesMinutesSeconds >= kSquareDegrees) { return false; }
  double degrees = 0.0;
  double minutes = 0.0;
  const double minutesAndSeconds = std::modf(degreesMinutesSeconds + kRounding, &degrees) * kHundred;
  const double seconds = std::modf(minutesAndSeconds, &minutes) * kHundred;
  return minutes < kSixty && seconds < kSixty;
}

RoofDrawer::RoofDrawer(ArchSpecStore& store) : store_(store), view_(store.view()) {
  readViewSettings(store, kRoofSection, settings);
  settings.pitch = store.readDouble(kRoofSection, kPitchKey, settings.pitch);
  settings.overhang = eavesOverhang(store);
  settings.fromPlan = store.readInt(kRoofSection, kFromPlanKey) != 0;
}

void RoofDrawer::save() {
  writeViewSettings(store_, kRoofSection, settings);
  store_.writeDouble(kRoofSection, kPitchKey, settings.pitch);
  store_.writeOption(kRoofSection, kFromPlanKey, settings.fromPlan);
  store_.flush();
}

double RoofDrawer::riseOver(double width) const { return std::tan(coreDmsRad(settings.pitch)) * width / 2.0; }

// ---- The round ----------------------------------------------------------------------------------------------

std::optional<RoofDrawer::Elevation> RoofDrawer::askElevation() const {
  const auto foot = pickFace(view_, kRoofFacePrompt);
  if (!foot) { return std::nullopt; }
  Elevation elevation{.foot = *foot};
  const auto eaves = askUntil(view_, kElevationPrompt, [&](Point at) -> std::optional<PlanLine> {
    auto line = jumpToLine(view_);
    if (!line) { return std::nullopt; }
    if (!hasLength(*line) || nearlyEqual(at, *foot)) {
      tellMiss(view_, "This is no roof line of an elevation beside the face");
      return std::nullopt;
    }
    elevation.picked = at;
    return line;
  });
  releaseCursor(view_);
  if (!eaves) { return std::nullopt; }
  view_.gsExecuteMacro(macroText::kUnlock);
  elevation.eaves = *eaves;
  return elevation;
}

bool RoofDrawer::drawRound() {
  const auto elevation = askElevation();
  if (!elevation) { return false; }
  elevation_ = *elevation;
  const size_t seen = viewTowards(directionOf(elevation_.foot, elevation_.picked));
  if (!mayDrawOn(view_, settings.layers[seen])) { return true; }
  ArchPart part(view_, {settings.parentName, kElevationViews[seen].prefix, settings.layers[seen]});
  takeRoofLines();
  const DraftingPen pen(view_, settings.style);
  for (const PlanLine& stroke : roofStrokes(facing_, sides_)) { pen.line(stroke.a, stroke.b); }
  part.finish(CurrentLayer::kAsBefore);
  warnOfPlan();
  return true;
}

// A roof higher than the room between plan and elevation is drawn all the same.
void RoofDrawer::warnOfPlan() const {
  double highest = highest_;
  for (const FacingGable& gable : facing_) {
    highest = std::max(highest,
                       distance(gable.apex, footOfPerpendicular(gable.apex, elevation_.eaves.a, elevation_.eaves.b)));
  }
  for (const SideGable& side : sides_) { highest = std::max(highest, side.rise); }
  const double room =
      distance(elevation_.foot, footOfPerpendicular(elevation_.foot, elevation_.eaves.a, elevation_.eaves.b));
  if (highest <= room) { return; }
  view_.gsSetStatus(numberText::format(
      "The roof runs into the plan: it rises %.0f above its eaves, which lie %.0f from the face", highest, room));
}

// ---- Roof lines ---------------------------------------------------------------------------------------------

void RoofDrawer::takeRoofLines() {
  while (view_.gsEscapePressed() == 0) {
    const auto line = askRoofLine();
    if (!line) { return; }
    if (settings.fromPlan && takeWholeRoof(line->plan)) { continue; }
    drawOverhangs(*line);
    takeGable(*line);
  }
}

// As it is seen in the elevation, by its outline and its ridges on plan. False where the roof line is not closed.
bool RoofDrawer::takeWholeRoof(const PlanLine& side) {
  const PlanLine& eaves = elevation_.eaves;
  const Point foot = footOfPerpendicular(elevation_.foot, eaves.a, eaves.b);
  auto outline = outlineThrough(linesOnLayer(view_, roofLineLayer(store_)), side);
  if (!outline || nearlyEqual(foot, elevation_.foot)) { return false; }
  takeGablesFrom(*outline, linesOnLayer(view_, ridgeLayer(store_)));
  const auto shape = RoofShape::over(*outline, std::tan(coreDmsRad(settings.pitch)));
  if (!shape) { return false; }
  const Point away = unit(foot - elevation_.foot);
  const Point right = quarterTurned(away);
  const auto drawn = [&](Point seen) { return right * seen.x + away * (dot(foot, away) - seen.y); };
  const DraftingPen pen(view_, settings.style);
  for (const PlanLine& stroke : shape->seenFrom(away, right)) { pen.line(drawn(stroke.a), drawn(stroke.b)); }
  highest_ = std::max(highest_, shape->highest());
  return true;
}

std::optional<RoofDrawer::RoofLine> RoofDrawer::askRoofLine() const {
  return askUntil(view_, kRoofLinePrompt, [this](Point) -> std::optional<RoofLine> {
    const auto plan = jumpToLine(view_);
    if (!plan) { return std::nullopt; }
    auto line = projected(*plan);
    if (!line) { tellMiss(view_, kForeignLine); }
    return line;
  });
}

std::optional<RoofDrawer::RoofLine> RoofDrawer::projected(const PlanLine& plan) const {
  const PlanLine& onto = elevation_.eaves;
  const double across = addDegrees(directionOf(onto.a, onto.b), kSquareDegrees);
  const double reach = distance(elevation_.foot, elevation_.picked);
  const auto first = crossing(onto, {plan.a, moved(plan.a, across, reach)});
  if (!hasLength(plan) || !first || nearlyEqual(*first, plan.a)) { return std::nullopt; }
  RoofLine line{.plan = plan, .away = directionOf(plan.a, *first), .distance = distance(plan.a, *first)};
  const auto second = crossing(onto, {plan.b, moved(plan.b, line.away, line.distance)});
  if (!second || distance(*first, *second) <= 1e-9 * distance(plan.a, plan.b)) { return std::nullopt; }
  line.eaves = {*first, *second};
  return line;
}

// From the ends of the roof line inwards to the walls.
void RoofDrawer::drawOverhangs(const RoofLine& line) const {
  const double eaves = directionOf(elevation_.eaves.a, elevation_.eaves.b);
  const Point along = moved({}, eaves, 1.0);
  const bool sameWay = dot(line.plan.b - line.plan.a, along) > 0.0;
  const Point inwards = along * (sameWay ? settings.overhang : -settings.overhang);
  const DraftingPen pen(view_, settings.style);
  pen.line(line.eaves.a + inwards, line.eaves.a);
  pen.line(line.eaves.b - inwards, line.eaves.b);
}

void RoofDrawer::takeGable(const RoofLine& line) {
  const double up = addDegrees(line.away, kHalf);
  if (const auto height = askLine(view_, kHeightPrompt)) {
    sides_.push_back({line.eaves, up, riseOver(distance(height->a, height->b))});
    return;
  }
  const Point onPlan = middle(line.plan.a, line.plan.b);
  const auto base = crossing(elevation_.eaves, {onPlan, moved(onPlan, line.away, line.distance)});
  const Point ridge = base.value_or(middle(line.eaves.a, line.eaves.b));
  facing_.push_back({line.eaves, moved(ridge, up, riseOver(distance(line.plan.a, line.plan.b)))});
}

}  // namespace ardenix::arch
