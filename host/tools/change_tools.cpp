#include <map>

#include "host/drawing/primitive.h"
#include "host/drawing/wall_openings.h"
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

void regroup(Drawing& drawing, PrimitiveId id, GroupId group) {
  Primitive changed = *drawing.find(id);
  changed.group = group;
  drawing.replace(id, std::move(changed));
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

// Where more items move than these, the others do not show where they go.
constexpr size_t kMostShown = 500;

std::vector<Geometry> selectedAfter(const Drawing& drawing, const Transform& transform) {
  std::vector<PrimitiveId> ids = drawing.selection();
  if (ids.size() > kMostShown) { ids.resize(kMostShown); }
  std::vector<Geometry> shown;
  shown.reserve(ids.size());
  for (const PrimitiveId id : ids) { shown.push_back(transformed(drawing.find(id)->geometry, transform)); }
  return shown;
}

// From direction a to direction b; neither is null.
Transform turn(Point centre, Point a, Point b) {
  const double size = length(a) * length(b);
  return Transform::rotation(centre, dot(a, b) / size, cross(a, b) / size);
}

Cursor::Rubber shiftedSelection(const DrawingWindow& window, Point from) {
  return [&window, from](Point onto) {
    std::vector<Geometry> shown = selectedAfter(window.drawing(), Transform::shift(onto - from));
    shown.emplace_back(Line{from, onto});
    return shown;
  };
}

}  // namespace

void select(DrawingWindow& window) {
  window.drawing().clearSelection();
  askSelection(window);
}

void erase(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  removeParts(window.drawing(), window.drawing().selection());
}

void move(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  const auto from = askPoint(window, "Indicate the point to move from");
  if (!from) { return; }
  const auto onto = askPointFrom(window, *from, "Indicate the point to move to", shiftedSelection(window, *from));
  if (onto) { transformSelected(window, Transform::shift(*onto - *from)); }
}

void copy(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  const auto from = askPoint(window, "Indicate the point to copy from");
  if (!from) { return; }
  while (const auto onto = askPointFrom(window, *from, "Indicate the point to copy to (space bar to stop)",
                                        shiftedSelection(window, *from))) {
    copySelected(window, Transform::shift(*onto - *from));
  }
}

void rotate(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  const auto centre = askPoint(window, "Indicate the point to turn about");
  if (!centre) { return; }
  const auto from = askPointFrom(window, *centre, "Indicate the direction to turn from");
  if (!from || *from == *centre) { return; }
  const auto onto = askPointFrom(window, *centre, "Indicate the direction to turn to", [&](Point to) {
    if (to == *centre) { return std::vector<Geometry>{}; }
    std::vector<Geometry> shown = selectedAfter(window.drawing(), turn(*centre, *from - *centre, to - *centre));
    shown.emplace_back(Line{*centre, to});
    return shown;
  });
  if (!onto || *onto == *centre) { return; }
  transformSelected(window, turn(*centre, *from - *centre, *onto - *centre));
}

void mirror(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  const auto from = askPoint(window, "Indicate a point on the line to mirror about");
  if (!from) { return; }
  const auto onto = askPointFrom(window, *from, "Indicate another point on it", [&](Point to) {
    if (to == *from) { return std::vector<Geometry>{}; }
    std::vector<Geometry> shown = selectedAfter(window.drawing(), Transform::mirror(*from, to - *from));
    shown.emplace_back(Line{*from, to});
    return shown;
  });
  if (!onto || *onto == *from) { return; }
  const Transform across = Transform::mirror(*from, *onto - *from);
  if (window.gsReply("Keep the originals?") == 1) {
    copySelected(window, across);
  } else {
    transformSelected(window, across);
  }
}

void group(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  std::string name;
  window.gsGetTextFromPromptBar("Name of the group:", name, 15);
  if (name.empty()) { return; }
  Drawing& drawing = window.drawing();
  const GroupId made = drawing.addGroup("", name);
  for (const PrimitiveId id : drawing.selection()) { regroup(drawing, id, made); }
}

void ungroup(DrawingWindow& window) {
  if (!askSelection(window)) { return; }
  Drawing& drawing = window.drawing();
  for (const PrimitiveId id : drawing.selection()) { regroup(drawing, id, 0); }
}

}  // namespace brevan::toolHandlers
