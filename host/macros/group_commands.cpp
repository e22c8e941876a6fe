#include "host/drawing/drawing.h"
#include "host/drawing/wall_openings.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

// Replaces the selection by what may be seen of a list; locked layers are seen and stay unselected, since
// nothing may change them.
void selectOnly(DrawingWindow& window, const std::vector<PrimitiveId>& ids) {
  window.drawing().clearSelection();
  for (const PrimitiveId id : ids) {
    if (window.isChangeable(id)) { window.drawing().select(id); }
  }
}

int layerOrError(const MacroRun& run, size_t argument) {
  const int layer = run.window.drawing().layerNamed(run.text(argument));
  if (layer < 0) { throw MacroError(run.column(argument), "there is no layer \"" + run.text(argument) + "\""); }
  return layer;
}

int layerMade(const MacroRun& run, size_t argument) {
  Layer layer;
  layer.name = run.text(argument);
  return run.window.drawing().addLayer(std::move(layer));
}

void refuseLocked(const MacroRun& run, int layer) {
  if (run.window.drawing().layer(layer)->locked) {
    throw MacroError(run.column(0), "the layer \"" + run.text(0) + "\" is locked");
  }
}

// The group that LINKSEL means: an unnamed one is always new, else the newest of the name under the open
// parent, else a new one.
GroupId linkTarget(DrawingWindow& window, const std::string& name) {
  Drawing& drawing = window.drawing();
  const std::string& parent = window.openGroup().parent();
  if (name != kUnnamedGroup) {
    if (const GroupId newest = drawing.newestGroup(parent, name)) { return newest; }
  }
  return drawing.addGroup(parent, name);
}

}  // namespace

void setParent(MacroRun& run) { run.window.openGroup().setParent(run.text(0)); }

void beginGroup(MacroRun& run) { run.window.openGroup().begin(run.text(0)); }

void selectName(MacroRun& run) {
  const GroupId group = run.window.drawing().newestGroup(run.text(0));
  if (group == 0) { throw MacroError(run.column(0), "there is no group \"" + run.text(0) + "\""); }
  selectOnly(run.window, run.window.drawing().membersOf(group));
}

void selectLayer(MacroRun& run) { selectOnly(run.window, run.window.drawing().onLayer(layerOrError(run, 0))); }

void selectNew(MacroRun& run) {
  const bool on = run.number(0) != 0.0;
  if (on) { run.window.drawing().clearSelection(); }
  run.window.setSelectsNew(on);
}

void clearSelection(MacroRun& run) { run.window.drawing().clearSelection(); }

void clearWorkSpace(MacroRun& run) { run.window.gsClearWorkSpace(); }

void deleteSelection(MacroRun& run) {
  Drawing& drawing = run.window.drawing();
  std::vector<PrimitiveId> going = drawing.selection();
  std::erase_if(going, [&run](PrimitiveId id) { return !run.window.isChangeable(id); });
  removeParts(drawing, going);
}

void linkSelection(MacroRun& run) {
  Drawing& drawing = run.window.drawing();
  const std::vector<PrimitiveId> selection = drawing.selection();
  if (selection.empty()) { return; }
  const GroupId target = linkTarget(run.window, run.text(0));
  for (const PrimitiveId id : selection) {
    if (drawing.find(id)->group == target || !run.window.isChangeable(id)) { continue; }
    Primitive linked = *drawing.find(id);
    linked.group = target;
    drawing.replace(id, std::move(linked));
  }
}

void newLayer(MacroRun& run) { run.window.drawing().setCurrentLayer(layerMade(run, 0)); }

void moveToLayer(MacroRun& run) {
  Drawing& drawing = run.window.drawing();
  const int layer = layerMade(run, 0);
  refuseLocked(run, layer);
  for (const PrimitiveId id : drawing.selection()) {
    Primitive moved = *drawing.find(id);
    if (moved.layer == layer || !run.window.isChangeable(id)) { continue; }
    moved.layer = layer;
    drawing.replace(id, std::move(moved));
  }
}

void copyToLayer(MacroRun& run) {
  Drawing& drawing = run.window.drawing();
  const int layer = layerMade(run, 0);
  refuseLocked(run, layer);
  for (const PrimitiveId id : drawing.selection()) {
    Primitive copy = *drawing.find(id);
    copy.layer = layer;
    drawing.add(std::move(copy));
  }
}

}  // namespace brevan::macroHandlers
