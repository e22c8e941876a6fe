#include "arch/plan_pick.h"

#include <string>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kNoLine = "No line lies near this point";

}  // namespace

void tellMiss(CCadWindow& view, std::string_view why) {
  view.gsSetStatus(std::string(why).append(". Please indicate another."));
}

std::optional<PlanLine> lineAtCursor(CCadWindow& view) {
  if (view.gsExecuteMacro(macroText::kNearLine) == 0) {
    tellMiss(view, kNoLine);
    return std::nullopt;
  }
  return PlanLine{{numberVariable(view, "X1"), numberVariable(view, "Y1")},
                  {numberVariable(view, "X2"), numberVariable(view, "Y2")}};
}

std::optional<PlanLine> jumpToLine(CCadWindow& view) {
  if (view.gsExecuteMacro(macroText::kJumpToLine) != 0) { return lineAtCursor(view); }
  tellMiss(view, kNoLine);
  return std::nullopt;
}

std::optional<PlanLine> pickLine(CCadWindow& view, std::string_view prompt) {
  return askUntil(view, prompt, [&view](Point) { return jumpToLine(view); });
}

Point cursorPosition(CCadWindow& view) {
  view.gsExecuteMacro(macroText::kCursorPosition);
  return {numberVariable(view, "xf"), numberVariable(view, "yf")};
}

std::optional<Point> standOnFace(CCadWindow& view) {
  if (view.gsExecuteMacro(macroText::kJumpToLine) == 0 || view.gsExecuteMacro(macroText::kLockOntoCursorLine) == 0) {
    tellMiss(view, kNoLine);
    return std::nullopt;
  }
  const Point foot = cursorPosition(view);
  view.gsExecuteMacro(macroText::cursorTo(foot));
  view.gsExecuteMacro(macroText::kLockSquare);
  view.gsExecuteMacro(macroText::kToggleHold);
  return foot;
}

std::optional<Point> pickFace(CCadWindow& view, std::string_view prompt) {
  return askUntil(view, prompt, [&view](Point) { return standOnFace(view); });
}

void releaseCursor(CCadWindow& view) { view.gsExecuteMacro(macroText::kToggleHold); }

void freeCursor(CCadWindow& view) {
  releaseCursor(view);
  view.gsExecuteMacro(macroText::kUnlock);
}

std::optional<Point> crossing(const PlanLine& one, const PlanLine& other) {
  const Point along = one.b - one.a;
  const Point across = other.b - other.a;
  if (std::fabs(cross(along, across)) <= 1e-9 * length(along) * length(across)) { return std::nullopt; }
  int onFirst = 0;
  int onSecond = 0;
  const PNT_2D_record at = coreIntersectionLines(one.a.x, one.a.y, one.b.x, one.b.y, other.a.x, other.a.y, other.b.x,
                                                 other.b.y, onFirst, onSecond);
  return Point{at.x, at.y};
}

}  // namespace ardenix::arch
