#include "arch/wall_drawer.h"

#include "arch/scratch_layer.h"
#include "arch/wall_lines.h"
#include "frame/drafting/group_numbering.h"
#include "frame/drafting/macro_texts.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kPlanPrefix = "PLN";
constexpr std::string_view kStartPrompt = "Indicate starting position of wall (else spacebar to exit)";
constexpr std::string_view kTrackPrompt = "Indicate position outside perimeter (else spacebar to exit)";

}  // namespace

void WallDrawer::load() {
  settings = readWallSettings(store_);
  loadType(settings.current);
}

void WallDrawer::loadType(int number) {
  if (const auto record = store_.readRecord(kWallTypes, number)) { type = readWallType(*record); }
}

bool WallDrawer::drawRound() {
  CCadWindow& view = store_.view();
  Point first;
  if (view.gsGetPointFromUser(settings.tracks ? kTrackPrompt : kStartPrompt, first.x, first.y) != 0) { return false; }
  load();
  const std::string group = startNumberedGroup(view, settings.parentName, kPlanPrefix);
  const int target = view.gsAddLayer(type.layer);
  if (targetIsLocked()) { return false; }
  const int scratch = view.gsAddLayer(kScratchLinkLayer);
  const bool drawable = draw(first);
  finishOnLayer(view, scratch, {group, type.layer, target});
  return drawable;
}

// Asked while the target layer is the current one. What is moved to a locked layer would stay behind.
bool WallDrawer::targetIsLocked() {
  if (store_.view().gsGetLayerLockedState() == 0) { return false; }
  ErrorMessage(numberText::format("The layer \"%s\" is locked, no wall can be drawn on it", type.layer),
               &store_.view());
  return true;
}

// False when the host does not take the wall's definition. The host says why in its status line; what it does not draw
// for this point alone may do for another.
bool WallDrawer::draw(Point first) {
  CCadWindow& view = store_.view();
  const auto refused = [&](const std::string& macro) {
    if (view.gsExecuteMacro(macro) != 0) { return false; }
    ErrorMessage("The wall was not drawn, the status line says why", &view);
    return true;
  };
  if (!settings.tracks) {
    const LayerStyle& face = type.rows[referenceRow(settings)];
    view.gsExecuteMacro(macroText::lineType(face.linetype, face.pen));
    view.gsExecuteMacro(macroText::width(face.width));
  }
  if (refused(parallelDefinition(type, settings))) { return false; }
  refused(macroText::parallelLine(first));
  return true;
}

}  // namespace ardenix::arch
