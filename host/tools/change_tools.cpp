#include <map>

#include "host/drawing/primitive.h"
#include "host/tools/tool_handlers.h"
#include "host/tools/tool_prompts.h"
#include "host/window/drawing_window.h"

namespace brevan::toolHandlers {

namespace {

// Where a copy goes: groups of their own, under the same names.
class GroupCopies {
 public:
  explicit GroupCopies(Drawing& drawing) : drawing_(drawing) {}
  GroupId of(GroupId original) {
    if (original == 0) { return 0; }
    const auto [entry, isNew] = copies_.try_emplace(original, 0);
    if (isNew) { entry->second = drawing_.addGroup(drawing_.group(original).parent, drawing_.group(original).name); }
    return entry->second;
  }

 private:
  Drawing& drawing_;
  std::map<GroupId, GroupId> copies_;
};

void transformSelected(DrawingWindow& window, const Transform& transform) {
  Drawing& drawing = window.drawing();
  for (const PrimitiveId id : drawing.selection()) {
    Primitive moved = *drawing.find(id);
    moved.geometry = transformed(moved.geometry, transform);
    drawing.replace(id, std::move(moved));
  }
}

void copySelected(DrawingWindow& window, const Transform& transform) {
  Drawing& drawing = window.drawing();
  GroupCopies groups(drawing);
  for (const PrimitiveId id : drawing.selection()) {
    Primitive copy = *drawing.find(id);
    copy.geometry = transformed(copy.geometry, transform);
    copy.group = groups.of(copy.group);
    drawing.add(std::move(copy));
  }
}

}  // namespace

void select(DrawingWindow& window) {
  window.drawing().clearSelection();
  askSelection(window);
}

void erase(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  for (const PrimitiveId id : window.drawing().selection()) { window.drawing().remove(id); }
}

void move(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  const auto from = askPoint(window, "Indicate the point to move from");
  if (!from) { return; }
  const auto onto = askPointFrom(window, *from, "Indicate the point to move to");
  if (onto) { transformSelected(window, Transform::shift(*onto - *from)); }
}

void copy(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  const auto from = askPoint(window, "Indicate the point to copy from");
  if (!from) { return; }
  while (const auto onto = askPointFrom(window, *from, "Indicate the point to copy to (space bar to stop)")) {
    copySelected(window, Transform::shift(*onto - *from));
  }
}

void rotate(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  const auto centre = askPoint(window, "Indicate the point to turn about");
  if (!centre) { return; }
  const auto from = askPointFrom(window, *centre, "Indicate the direction to turn from");
  if (!from || *from == *centre) { return; }
  const auto onto = askPointFrom(window, *centre, "Indicate the direction to turn to");
  if (!onto || *onto == *centre) { return; }
  const Point a = *from - *centre;
  const Point b = *onto - *centre;
  const double size = length(a) * length(b);
  transformSelected(window, Transform::rotation(*centre, dot(a, b) / size, cross(a, b) / size));
}

void mirror(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  const auto from = askPoint(window, "Indicate a point on the line to mirror about");
  if (!from) { return; }
  const auto onto = askPointFrom(window, *from, "Indicate another point on it");
  if (!onto || *onto == *from) { return; }
  const Transform across = Transform::mirror(*from, *onto - *from);
  if (window.gsReply("Keep the originals?") == 1) {
    copySelected(window, across);
  } else {
    transformSelected(window, across);
  }
}

}  // namespace brevan::toolHandlers
