#include <algorithm>
#include <optional>

#include "host/drawing/drawing.h"
#include "host/geometry/segment.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

constexpr double kMostLineTypes = 32767.0;

// The line of the part drawn last that would run through the point if it were longer: the middle of a part's axis can
// lie beyond what is drawn of it. Of several the newest, since axes are drawn last; copies of the part count for
// nothing, as their other lines may lead to its axis. 0: none.
PrimitiveId lineContinuedThrough(const DrawingWindow& window, Point p) {
  constexpr double kOnLine = 0.001;  // points come printed
  const Drawing& drawing = window.drawing();
  const PrimitiveId lastId = window.lastDrawn();
  const Primitive* last = drawing.find(lastId);
  if (last == nullptr || last->group == 0) { return 0; }
  const std::vector<PrimitiveId> part = drawing.membersOf(last->group);
  const auto found = std::find_if(part.rbegin(), part.rend(), [&](PrimitiveId id) {
    const Line* line = id > lastId ? nullptr : std::get_if<Line>(&drawing.find(id)->geometry);
    const auto foot = line == nullptr ? std::nullopt : footOnLine(*line, p);
    return foot && distance(*foot, p) <= kOnLine;
  });
  return found == part.rend() ? 0 : *found;
}

void lockOntoLineOf(MacroRun& run, PrimitiveId id) {
  const Primitive* found = run.window.drawing().find(id);
  if (found == nullptr) { throw MacroError(run.column(0), "no line lies at this point"); }
  const Line& line = std::get<Line>(found->geometry);
  if (line.a == line.b) { throw MacroError(run.column(0), "the line at this point has no length"); }
  run.window.cursor().lockOntoLine(line);
}

}  // namespace

void setLineType(MacroRun& run) {
  if (run.number(0) < 1.0 || run.number(0) > kMostLineTypes) {
    throw MacroError(run.column(0), "a line type is 1 to 32767");
  }
  const int pen = run.pen(1);
  run.window.style().linetype = static_cast<int>(run.number(0));
  run.window.style().pen = pen;
}

void setWidth(MacroRun& run) {
  if (run.number(0) < 0.0) { throw MacroError(run.column(0), "a line width is 0 or more"); }
  run.window.style().width = run.number(0);
}

void unlockAngle(MacroRun& run) { run.window.cursor().unlock(); }

void lockAngle(MacroRun& run) { run.window.cursor().lockAtAngle(run.number(0)); }

// A part's own line comes before what else the drawing holds there.
void lockOntoLineAt(MacroRun& run) {
  const Point p = run.point(0);
  const PrimitiveId leading = lineContinuedThrough(run.window, p);
  lockOntoLineOf(run, leading != 0 ? leading : run.window.pick(p, kLinePrimitive));
}

void lockOntoLine(MacroRun& run) {
  lockOntoLineOf(run, run.window.pick(run.window.cursor().position(), kLinePrimitive));
}

void lockSquare(MacroRun& run) {
  if (!run.window.cursor().lockSquare()) { throw MacroError(1, "YPERP expects the cursor locked onto a line"); }
}

void toggleHold(MacroRun& run) { run.window.cursor().hold(!run.window.cursor().held()); }

void cursorMode(MacroRun& run) { run.window.cursor().snapToNear(run.text(0) == "A"); }

void bracketUndo(MacroRun& run) { run.window.setUndoBracket(run.number(0) != 0.0); }

}  // namespace brevan::macroHandlers
