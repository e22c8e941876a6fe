#include "host/tools/tool_prompts.h"

#include "host/drawing/part_selection.h"
#include "host/window/drawing_window.h"

namespace brevan {

std::optional<Point> askPoint(DrawingWindow& window, std::string_view prompt) {
  Point at;
  if (window.gsGetPointFromUser(prompt, at.x, at.y) != 0) { return std::nullopt; }
  return at;
}

std::optional<Point> askPointFrom(DrawingWindow& window, Point from, std::string_view prompt, Cursor::Rubber rubber) {
  Cursor& cursor = window.cursor();
  cursor.setPosition(from);
  cursor.hold(true);
  cursor.setRubberBand(rubber == nullptr);
  cursor.setRubber(std::move(rubber));
  const auto at = askPoint(window, prompt);
  cursor.setRubber(nullptr);
  cursor.setRubberBand(false);
  cursor.hold(false);
  return at;
}

std::vector<Geometry> boxOf(Point corner, Point opposite) {
  const Point second{opposite.x, corner.y};
  const Point fourth{corner.x, opposite.y};
  return {Line{corner, second}, Line{second, opposite}, Line{opposite, fourth}, Line{fourth, corner}};
}

namespace {

void selectWindow(Drawing& drawing, Point corner, Point opposite) {
  Box box;
  box.add(corner);
  box.add(opposite);
  selectParts(drawing, box, windowTakes(drawing, corner, opposite));
}

}  // namespace

bool askSelection(DrawingWindow& window) {
  Drawing& drawing = window.drawing();
  if (drawing.hasSelection()) { return true; }
  while (const auto at = askPoint(window, "Indicate the items (space bar to go on)")) {
    const PrimitiveId picked = drawing.nearest(
        *at, aperture(drawing), [&drawing](PrimitiveId id, const Primitive&) { return isChangeable(drawing, id); });
    if (picked != 0) {
      togglePart(drawing, picked);  // a second pick takes it out again
    } else if (const auto opposite = askPointFrom(window, *at, "Indicate the window's opposite corner",
                                                  [&at](Point corner) { return boxOf(*at, corner); })) {
      selectWindow(drawing, *at, *opposite);
    }
    window.gsRefresh();
  }
  return window.gsEscapePressed() == 0 && drawing.hasSelection();
}

}  // namespace brevan
