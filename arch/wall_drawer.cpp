#include "arch/wall_drawer.h"

#include "arch/arch_part.h"
#include "arch/wall_lines.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/names.h"

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
  if (!mayDrawOn(view, type.layer)) { return false; }
  const auto first = askPoint(view, settings.tracks ? kTrackPrompt : kStartPrompt);
  if (!first) { return false; }
  load();
  ArchPart part(view, {settings.parentName, kPlanPrefix, type.layer});
  if (!define()) { return false; }
  if (!send(macroText::parallelLine(*first))) { return true; }
  part.finish(CurrentLayer::kTarget);
  if (settings.joins) { join(part.group()); }
  return true;
}

void WallDrawer::join(const std::string& group) {
  CCadWindow& view = store_.view();
  std::string parent = settings.parentName;
  cleanName(parent, true);
  view.gsExecuteMacro(macroText::selectName(parent, group));
  view.gsExecuteMacro(macroText::joinWalls(store_.wallLayers()));
  clearAll(view);
}

// The host says in its status line why it does not take a macro.
bool WallDrawer::send(const std::string& macro) {
  if (store_.view().gsExecuteMacro(macro) != 0) { return true; }
  ErrorMessage("The wall was not drawn, the status line says why", &store_.view());
  return false;
}

// The line followed is a face of the wall and drawn like it. False when the host does not take the definition.
bool WallDrawer::define() {
  if (!settings.tracks) {
    const LayerStyle& face = type.rows[referenceRow(settings)];
    store_.view().gsExecuteMacro(macroText::lineType(face.linetype, face.pen));
    store_.view().gsExecuteMacro(macroText::width(face.width));
  }
  return send(parallelDefinition(type, settings));
}

}  // namespace ardenix::arch
