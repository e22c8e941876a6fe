#include "arch/stair_drawer.h"

#include "arch/arch_part.h"
#include "arch/plan_pick.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

constexpr int kSnapSquare = 9;
constexpr int kHalfTurn = 180;

constexpr std::string_view kFlightBase = "Indicate base of staircase on plan (else spacebar to exit)";
constexpr std::string_view kFlightTop = "Indicate direction of top of staircase on plan (else spacebar for exit)";
constexpr std::string_view kFlightElevation = "Indicate base of staircase on elevation (else spacebar for plan)";
constexpr std::string_view kLandingStart = "Indicate start of landing on plan (else spacebar to exit)";
constexpr std::string_view kLandingCorner = "Indicate corner of landing on plan (else spacebar to exit)";
constexpr std::string_view kLandingEnd = "Indicate end of landing on plan (else spacebar to exit)";
constexpr std::string_view kLandingElevation = "Indicate base of landing on elevation (else spacebar for plan)";
constexpr std::string_view kNoShape = "The landing's end lies neither ahead, beside nor back along the run";

// Holds the cursor where it is: points then snap square to it. However it goes, the cursor is free again.
class SquareCursor {
 public:
  explicit SquareCursor(CCadWindow& view) : view_(view) { hold(); }
  SquareCursor(const SquareCursor&) = delete;
  SquareCursor& operator=(const SquareCursor&) = delete;
  ~SquareCursor() {
    release();
    view_.gsSetSnapMode(0);
  }

  void hold() {
    view_.gsSetSnapMode(kSnapSquare);
    toggle();
  }
  void release() {
    if (held_) { toggle(); }
  }

 private:
  void toggle() {
    view_.gsExecuteMacro(macroText::kToggleHold);
    held_ = !held_;
  }

  CCadWindow& view_;
  bool held_ = false;
};

}  // namespace

StairDrawer::StairDrawer(ArchSpecStore& store) : settings(readStairSettings(store)), store_(store) {
  loadTread(settings.currentTread);
  loadRailing(settings.currentRailing);
}

void StairDrawer::loadTread(int number) {
  if (const auto record = store_.readRecord(kTreads, number)) { stair.treads = readTread(*record); }
}

void StairDrawer::loadRailing(int number) {
  if (const auto record = store_.readRecord(kRailings, number)) { stair.railing = readRailing(*record); }
}

bool StairDrawer::drawRound() { return settings.landing ? landingRound() : flightRound(); }

// ---- Prompts ------------------------------------------------------------------------------------------------

std::optional<Point> StairDrawer::askApart(std::string_view prompt, Point held, std::string_view why) {
  CCadWindow& view = store_.view();
  return askUntil(view, prompt, [&](Point given) -> std::optional<Point> {
    if (!nearlyEqual(given, held)) { return given; }
    tellMiss(view, why);
    return std::nullopt;
  });
}

bool StairDrawer::flightRound() {
  CCadWindow& view = store_.view();
  const auto base = askPoint(view, kFlightBase);
  if (!base) { return false; }
  SquareCursor cursor(view);
  const auto top = askApart(kFlightTop, *base, "This is the base, which gives no direction");
  if (!top) { return false; }
  view.gsSetCurrCoord(base->x, base->y);
  const auto elevation = askApart(kFlightElevation, *base, "This is the base on plan, which gives no view");
  cursor.release();
  return drawFlight({*base, quarterOf(*base, *top)}, elevation);
}

bool StairDrawer::landingRound() {
  CCadWindow& view = store_.view();
  const auto start = askPoint(view, kLandingStart);
  if (!start) { return false; }
  SquareCursor cursor(view);
  const auto corner = askApart(kLandingCorner, *start, "This is the start, which gives no direction");
  cursor.release();
  if (!corner) { return false; }
  const auto end = askPoint(view, kLandingEnd);
  if (!end) { return false; }
  const auto landing = landingThrough(*start, *corner, *end, stair.treads.width);
  if (!landing) {
    ErrorMessage(kNoShape, &view);
    return false;
  }
  view.gsSetCurrCoord(start->x, start->y);
  cursor.hold();
  const auto elevation = askApart(kLandingElevation, *start, "This is the start on plan, which gives no view");
  cursor.release();
  return drawLanding(*landing, elevation);
}

// ---- Parts --------------------------------------------------------------------------------------------------

template <class Draw>
bool StairDrawer::drawPart(const StairPlace& place, Draw&& draw) {
  CCadWindow& view = store_.view();
  const std::string layer = store_.readString(kStairSection, place.layerKey, "");
  if (!mayDrawOn(view, layer)) { return false; }
  ArchPart part(view, {settings.parentName, place.prefix, layer});
  const int scratch = view.gsGetCurrentLayer();
  view.gsExecuteMacro(macroText::plainNewLayer(layer));
  view.gsSetCurrentLayer(scratch);
  draw(StairSheet{view, stair, settings});
  part.finish(CurrentLayer::kAsBefore);
  return true;
}

bool StairDrawer::drawFlight(const Flight& flight, std::optional<Point> elevation) {
  if (!elevation) {
    return drawPart(placeOnPlan(), [&](const StairSheet& sheet) { drawFlightPlan(sheet, flight); });
  }
  const int seenFrom = quarterOf(flight.base, *elevation);
  return drawPart(placeOnElevation(seenFrom), [&](const StairSheet& sheet) {
    const Flight shown{*elevation, flight.direction};
    if ((seenFrom - flight.direction) % kHalfTurn == 0) {
      drawFlightFace(sheet, shown, seenFrom == flight.direction);
    } else {
      drawFlightSide(sheet, shown);
    }
    mirrorStair(sheet.view, mirrorOf(flight.direction, seenFrom), *elevation);
  });
}

bool StairDrawer::drawLanding(const Landing& landing, std::optional<Point> elevation) {
  if (!elevation) {
    return drawPart(placeOnPlan(), [&](const StairSheet& sheet) { drawLandingPlan(sheet, landing); });
  }
  const int seenFrom = quarterOf(landing.start, *elevation);
  return drawPart(placeOnElevation(seenFrom), [&](const StairSheet& sheet) {
    drawLandingView(sheet, landing, seenFrom, *elevation);
    sheet.view.gsClearSelection();
    sheet.view.gsExecuteMacro(macroText::selectLayer(scratchNames::kArchitectural));
    sheet.view.gsExecuteMacro(macroText::rotate(*elevation, 0.0));
  });
}

}  // namespace ardenix::arch
