#include "host/drawing/drawing.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"
#include "host/window/drawing_window.h"

// Single items at a point, patterns by name, and switches of the window.
namespace brevan::macroHandlers {

namespace {

constexpr std::string_view kAnyParent = "* ";

// "PARENT NAME", or "* NAME" for the newest of the name under any parent.
GroupId patternNamed(const Drawing& drawing, std::string_view wanted) {
  if (!wanted.starts_with(kAnyParent)) { return drawing.newestGroup(wanted); }
  wanted.remove_prefix(kAnyParent.size());
  for (GroupId id = drawing.lastGroup(); id > 0; --id) {
    if (drawing.group(id).name == wanted && !drawing.group(id).members.empty()) { return id; }
  }
  return 0;
}

void joinGroup(Drawing& drawing, GroupId group, GroupId target) {
  for (const PrimitiveId id : drawing.membersOf(group)) {
    Primitive joined = *drawing.find(id);
    joined.group = target;
    drawing.replace(id, std::move(joined));
  }
}

}  // namespace

void selectAt(MacroRun& run) {
  Drawing& drawing = run.window.drawing();
  const PrimitiveId found = run.window.pick(run.point(0), kAnyPrimitive);
  if (found == 0) { throw MacroError(run.column(0), "nothing lies at this point"); }
  const GroupId group = drawing.find(found)->group;
  const bool wholeGroup = group != 0 && group == groupInTheMaking(run.window);
  drawing.clearSelection();
  for (const PrimitiveId id : wholeGroup ? drawing.membersOf(group) : std::vector<PrimitiveId>{found}) {
    if (run.window.isChangeable(id)) { drawing.select(id); }
  }
}

void editLine(MacroRun& run) {
  Drawing& drawing = run.window.drawing();
  const PrimitiveId found = run.window.pick(run.point(0), kLinePrimitive);
  if (found == 0) { throw MacroError(run.column(0), "no line lies at this point"); }
  if (!run.window.isChangeable(found)) { throw MacroError(run.column(0), "the line at this point is locked"); }
  if (run.number(1) < 1.0) { throw MacroError(run.column(1), "a line type is 1 or more"); }
  const int pen = run.pen(2);
  if (run.number(3) < 0.0) { throw MacroError(run.column(3), "a line width is 0 or more"); }
  Primitive changed = *drawing.find(found);
  changed.linetype = static_cast<int>(run.number(1));
  changed.pen = pen;
  changed.width = run.number(3);
  drawing.replace(found, std::move(changed));
}

// Into the part that is being drawn when it bears the new name; what is placed into a part belongs to it.
void renamePattern(MacroRun& run) {
  Drawing& drawing = run.window.drawing();
  const GroupId group = patternNamed(drawing, run.text(0));
  if (group == 0) { throw MacroError(run.column(0), "there is no group \"" + run.text(0) + "\""); }
  const std::string& name = run.text(1);
  const size_t blank = name.find(' ');
  if (blank == std::string::npos) {
    throw MacroError(run.column(1), "a group's new name is its category and its name");
  }
  const GroupId open = groupInTheMaking(run.window);
  const bool isOpenPart = open != 0 && open != group && drawing.newestGroup(name) == open;
  if (isOpenPart) {
    joinGroup(drawing, group, open);
  } else {
    drawing.renameGroup(group, name.substr(0, blank), name.substr(blank + 1));
  }
}

void startPolyline(MacroRun& run) {
  OpenGroup& open = run.window.openGroup();
  open.setParent(std::string(open.parent()));  // so that a new one begins, whatever is open
  open.begin("POLY");
}

void clearCurrentObject(MacroRun& run) { run.window.clearCurrent(); }

void allLayers(MacroRun& run) { run.window.macroState().allLayers = run.text(0) == "Y"; }

void showPowerBar(MacroRun& run) { run.window.macroState().powerBar = true; }

}  // namespace brevan::macroHandlers
