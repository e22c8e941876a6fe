#include "mech/fastener_placement.h"

#include <cmath>
#include <string>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "mech/nearest_line.h"
#include "mech/plan_placement.h"

namespace ardenix::mech {

namespace {

constexpr std::string_view kRotationMenu =
    "&No Rotation, &Enter Rotation, Rotate &90\xB0, Rotate 1&80\xB0, Rotate 2&70\xB0";

std::string lowerCased(std::string_view word) {
  std::string lower(word);
  for (char& c : lower) { c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
  return lower;
}

}  // namespace

void endFastener(CCadWindow& view) {
  endPart(view);
  view.gsExecuteMacro(macroText::kFreeAngle);
  view.gsSetCursorHold(0);
}

// ---- Side view ----------------------------------------------------------------------------------------------

std::optional<SidePlacement> FastenerPlacement::askSideView() {
  view_.SetFocus();
  if (trade_.turnsToPoint) { return askSideByTwoPoints(); }
  const std::string_view ending = fastener_.autoAlign ? " (auto-align)" : "";
  const auto picked =
      askPoint(view_, numberText::format("Indicate the position of the %s side view%s", trade_.word, ending));
  if (!picked) { return std::nullopt; }
  SidePlacement placement{*picked, fastener_.autoAlign};
  fastener_.position = fastener_.autoAlign ? alignedPoint(*picked) : *picked;
  if (fastener_.autoAlign && nearlyEqual(fastener_.position, *picked)) {
    placement.turnsToPicked = false;
    view_.gsSetPrompt(numberText::format("No line found nearby to align this %s to. Please specify rotation manually.",
                                         lowerCased(trade_.word)));
  }
  return placement;
}

std::optional<SidePlacement> FastenerPlacement::askSideByTwoPoints() {
  const auto position = askPoint(view_, numberText::format("Indicate the position of the %s side view", trade_.word));
  if (!position) { return std::nullopt; }
  const auto target =
      askPoint(view_, numberText::format("Indicate a point on the %s center line for rotation", trade_.word));
  if (!target) { return std::nullopt; }
  fastener_.position = *position;
  return SidePlacement{*target, true};
}

// The foot of the perpendicular on the line nearest the picked point; that point where there is no line. The
// crossing search answers the origin when it found none.
Point FastenerPlacement::alignedPoint(Point picked) {
  const auto line = footOnNearestLine(view_, picked);
  return !line || isOrigin(line->foot) ? picked : line->foot;
}

void FastenerPlacement::finishSideView(const SidePlacement& placement, const FastenerReach& reach) {
  selectPart(view_, trade_.category, fastener_.group);
  if (placement.turnsToPicked) {
    turnOnto(placement.picked, reach.length);
  } else {
    turnByMenu(reach.axisLength);
  }
  finish();
}

// The axis, drawn straight down, comes to point at the target; a target on the part's position turns nothing.
void FastenerPlacement::turnOnto(Point target, double length) {
  const Point base = fastener_.position;
  fastener_.axisEnd = target;
  fastener_.rotation = 0.0;
  if (nearlyEqual(target, base)) { return; }
  turnPart(view_, base, base + Point{0, -length}, target);
  fastener_.rotation = degrees(std::atan2(target.x - base.x, base.y - target.y));
}

void FastenerPlacement::turnByMenu(double axisLength) {
  const Point base = fastener_.position;
  const double angle = fastener_.rotation = askRotation();
  if (angle != 0.0) { view_.gsExecuteMacro(macroText::rotate(base, angle)); }
  fastener_.axisEnd = base + Point{axisLength * std::sin(radians(angle)), -axisLength * std::cos(radians(angle))};
}

double FastenerPlacement::askRotation() {
  enum { kEnterRotation = 2, kQuarterTurn, kThreeQuarterTurn = 5 };
  const int item = view_.gsSubMenu(kRotationMenu);
  if (item == kEnterRotation) { return askNumber(view_, "Enter rotation in degrees:"); }
  return item >= kQuarterTurn && item <= kThreeQuarterTurn ? 90.0 * (item - kEnterRotation) : 0.0;
}

// ---- Plan view ----------------------------------------------------------------------------------------------

std::optional<Point> FastenerPlacement::askPlanView() {
  if (!isOrigin(fastener_.axisEnd)) { return askPlanOnAxis(); }
  const auto plan = askPlan(view_, trade_.planWord);
  if (!plan) { return std::nullopt; }
  fastener_.position = plan->centre;
  return plan->target;
}

// The plan lies on the axis of the side view just drawn. Where the user ends a prompt the cursor stays held
// and locked until endPart.
std::optional<Point> FastenerPlacement::askPlanOnAxis() {
  view_.SetFocus();
  const Point axis = middle(fastener_.axisEnd, fastener_.position);
  view_.gsSetCurrCoord(axis.x, axis.y);
  const bool locked = view_.gsExecuteMacro(macroText::lockOntoLine(axis)) != 0;
  if (locked && repeatsPolar()) { view_.gsExecuteMacro(macroText::kFreeAngle); }
  view_.gsSetCursorHold(1);
  const auto picked = askPoint(view_, numberText::format(planPrompt(), trade_.planWord));
  if (!picked) { return std::nullopt; }
  fastener_.position = repeatsPolar() ? onAxis(*picked) : *picked;
  const auto rotationPoint = askPoint(
      view_, numberText::format("Enter a point on the %s plan view center line for rotation", trade_.planWord));
  if (!rotationPoint) { return std::nullopt; }
  view_.gsSetCursorHold(0);
  view_.gsExecuteMacro(macroText::kFreeAngle);
  return rotationPoint;
}

// The part has then moved off its axis onto the pitch circle: what lies on the axis now is another's line.
bool FastenerPlacement::repeatsPolar() const { return repeats() && fastener_.repeat.kind != RepeatKind::kLinear; }

// The foot of the perpendicular on the axis along which the side view was drawn.
Point FastenerPlacement::onAxis(Point picked) const {
  const Point start = fastener_.position;
  const Point along = fastener_.axisEnd - start;
  const double square = dot(along, along);
  return square > 0.0 ? start + along * (dot(picked - start, along) / square) : picked;
}

std::string_view FastenerPlacement::planPrompt() const {
  if (fastener_.repeat.number < 2) { return "Indicate %s center for plan view"; }
  return fastener_.repeat.kind == RepeatKind::kLinear ? "Indicate start position of %s linear repeat for plan view"
                                                      : "Indicate center of %s polar repeat for plan view";
}

void FastenerPlacement::finishPlanView(Point rotationPoint, const FastenerReach& reach) {
  selectPart(view_, trade_.category, fastener_.group);
  const Point centre = fastener_.position;
  turnPart(view_, centre, centre + Point{0, -reach.planRadius}, rotationPoint);
  finish();
}

// ---- Groups and repeats -------------------------------------------------------------------------------------

void FastenerPlacement::startGroup(std::string_view base) {
  const std::string prefix = base.starts_with('_') ? fastener_.name + std::string(base) : std::string(base);
  fastener_.group = startPart(view_, trade_.category, prefix);
  if (trade_.cutByMacros) { view_.gsExecuteMacro(macroText::kSelectNew); }
}

void FastenerPlacement::repeat() {
  if (!repeats()) { return; }
  return repeatsPolar() ? repeatPolar() : repeatLinear();
}

bool FastenerPlacement::repeats() const {
  return std::fabs(fastener_.repeat.value) > 1e-12 && fastener_.repeat.number > 1;
}

// A part whose direction is not given stays single and counts as drawn; endPart then frees the cursor.
void FastenerPlacement::repeatLinear() {
  const Point base = fastener_.position;
  view_.gsSetCurrCoord(base.x, base.y);
  view_.gsExecuteMacro(macroText::lockAngle(fastener_.rotation));
  view_.gsSetCursorHold(1);
  const auto towards = askPointApart(view_, "Indicate the direction in which to repeat", base);
  if (!towards) { return; }
  double distance = 0.0;
  double direction = 0.0;
  coreSurvJoin(base.y, base.x, towards->y, towards->x, distance, direction);
  Point next;
  coreSurvPolar(base.y, base.x, direction, fastener_.repeat.value, next.y, next.x);
  view_.gsExecuteMacro(macroText::repeatLinear(fastener_.repeat.number - 1, base, next));
  view_.gsSetCursorHold(0);
  view_.gsExecuteMacro(macroText::kFreeAngle);
  view_.gsClearSelection();
}

// The part moves left onto the pitch circle, whose centre is the point the user gave.
void FastenerPlacement::repeatPolar() {
  const Point centre = fastener_.position;
  const int number = fastener_.repeat.number;
  double radius = fastener_.repeat.value / 2.0;
  if (fastener_.repeat.kind == RepeatKind::kSpacing) { radius /= std::sin(radians(360.0 / number) / 2.0); }
  view_.gsExecuteMacro(macroText::move(centre, {centre.x - radius, centre.y}));
  view_.gsExecuteMacro(macroText::repeatPolar(number - 1, centre, 360.0 / number));
}

void FastenerPlacement::finish() {
  repeat();
  if (trade_.clearsSelection) { clearAll(view_); }
  if (trade_.returnsToRoot) { view_.gsExecuteMacro(macroText::kRootParent); }
  if (trade_.cutByMacros) { view_.gsExecuteMacro(macroText::kSelectNewEnd); }
}

}  // namespace ardenix::mech
