#include "host/tools/tool_prompts.h"

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

// An item that is seen and can be changed.
bool isChangeable(const Drawing& drawing, const Primitive& primitive) {
  const Layer* layer = drawing.layer(primitive.layer);
  return layer != nullptr && layer->visible && !layer->locked;
}

// The item with the others of its group; a second pick takes it out again.
void toggle(Drawing& drawing, PrimitiveId picked) {
  const bool selected = drawing.isSelected(picked);
  const GroupId group = drawing.find(picked)->group;
  const std::vector<PrimitiveId> ids = group == 0 ? std::vector<PrimitiveId>{picked} : drawing.membersOf(group);
  for (const PrimitiveId id : ids) {
    if (selected) {
      drawing.deselect(id);
    } else if (isChangeable(drawing, *drawing.find(id))) {
      drawing.select(id);
    }
  }
}

void selectInside(Drawing& drawing, Point corner, Point opposite) {
  Box box;
  box.add(corner);
  box.add(opposite);
  for (const PrimitiveId id : drawing.inBox(box)) {
    const Primitive& primitive = *drawing.find(id);
    if (isChangeable(drawing, primitive) && box.holds(drawing.bounds(primitive))) { drawing.select(id); }
  }
}

}  // namespace

bool askSelection(DrawingWindow& window) {
  Drawing& drawing = window.drawing();
  if (drawing.hasSelection()) { return true; }
  while (const auto at = askPoint(window, "Indicate the items (space bar to go on)")) {
    const PrimitiveId picked = drawing.nearest(
        *at, aperture(drawing), [&drawing](PrimitiveId, const Primitive& item) { return isChangeable(drawing, item); });
    if (picked != 0) {
      toggle(drawing, picked);
    } else if (const auto opposite = askPointFrom(window, *at, "Indicate the window's opposite corner",
                                                  [&at](Point corner) { return boxOf(*at, corner); })) {
      selectInside(drawing, *at, *opposite);
    }
    window.gsRefresh();
  }
  return window.gsEscapePressed() == 0 && drawing.hasSelection();
}

}  // namespace brevan
