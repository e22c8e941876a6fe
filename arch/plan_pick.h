#pragma once

#include <optional>
#include <string_view>

#include "frame/drafting/part_round.h"
#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::arch {

struct PlanLine {
  Point a;
  Point b;
};

// Asks for points until one gives a result: take(point) is nothing for one that does not, after it told why. Nothing
// when the user ended the prompt.
template <class Take>
auto askUntil(CCadWindow& view, std::string_view prompt, Take&& take) -> decltype(take(Point{})) {
  while (const auto at = askPoint(view, prompt)) {
    if (auto found = take(*at)) { return found; }
  }
  return std::nullopt;
}

// Says in the status line why a point is not taken, and that another may be given.
void tellMiss(CCadWindow& view, std::string_view why);

// The line at the cursor. Nothing where none is near, which the user is told: what an earlier enquiry found is never
// taken for it.
std::optional<PlanLine> lineAtCursor(CCadWindow& view);
// The same, with the cursor moved onto the line.
std::optional<PlanLine> jumpToLine(CCadWindow& view);
// Asks for a line, and again where none is near.
std::optional<PlanLine> pickLine(CCadWindow& view, std::string_view prompt);

Point cursorPosition(CCadWindow& view);

// Puts the cursor onto the line near it, locks it square to that line and holds it there. The point on the line;
// nothing where none is near, which the user is told.
std::optional<Point> standOnFace(CCadWindow& view);
// Asks for the face on which the cursor then stands.
std::optional<Point> pickFace(CCadWindow& view, std::string_view prompt);

// Releases the cursor, which stays locked.
void releaseCursor(CCadWindow& view);
// Releases and unlocks it.
void freeCursor(CCadWindow& view);

// The crossing of two endless lines; nothing where they are parallel.
std::optional<Point> crossing(const PlanLine& one, const PlanLine& other);

}  // namespace ardenix::arch
