#include "arch/roof_line_drawer.h"

#include <cmath>

#include "arch/view_settings.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kOverhangKey = "EavesOverHang";
constexpr std::string_view kLayerKey = "Layer";

// The host asks for the figure to follow, and takes the one of the line pointed at, while this lives.
class PerimeterPrompt {
 public:
  explicit PerimeterPrompt(CCadWindow& view) : view_(view) { view_.gsSetAutoperimPromptFlag(1); }
  PerimeterPrompt(const PerimeterPrompt&) = delete;
  PerimeterPrompt& operator=(const PerimeterPrompt&) = delete;
  ~PerimeterPrompt() { view_.gsSetAutoperimPromptFlag(0); }

 private:
  CCadWindow& view_;
};

}  // namespace

double eavesOverhang(const ArchSpecStore& store) {
  return std::fabs(store.readDouble(kRoofLineSection, kOverhangKey, RoofLineSettings{}.offset));
}

RoofLineDrawer::RoofLineDrawer(ArchSpecStore& store) : store_(store), view_(store.view()) {
  settings.offset = store.readDouble(kRoofLineSection, kOverhangKey, settings.offset);
  readStyle(store, kRoofLineSection, settings.style);
  settings.layer = store.readString(kRoofLineSection, kLayerKey, "");
}

void RoofLineDrawer::save() {
  store_.writeDouble(kRoofLineSection, kOverhangKey, settings.offset);
  writeStyle(store_, kRoofLineSection, settings.style);
  store_.writeString(kRoofLineSection, kLayerKey, settings.layer);
  store_.flush();
}

// The layer that was current is current again, and a new one stays only with a roof line on it.
void RoofLineDrawer::draw() {
  if (!mayDrawOn(view_, settings.layer)) { return; }
  const int before = view_.gsGetCurrentLayer();
  const bool isNew = view_.gsGetLayerIndexFromName(settings.layer) < 0;
  view_.gsExecuteMacro(macroText::plainNewLayer(settings.layer));
  view_.gsExecuteMacro(macroText::parallelToFigure(settings.style, settings.offset));
  int drawn = 0;
  {
    const PerimeterPrompt prompt(view_);
    drawn = view_.gsExecuteMacro(macroText::kParallelLine);
  }
  if (drawn == 0) { ErrorMessage("The roof line was not drawn, the status line says why", &view_); }
  const int layer = view_.gsGetCurrentLayer();
  view_.gsSetCurrentLayer(before);
  if (isNew && !hasLines(layer)) { view_.gsDeleteLayer(layer); }
}

bool RoofLineDrawer::hasLines(int layer) {
  const int scan = view_.gsGetListHandle(kAnyPrimitive, layer, 0, 0, 0, 0, 0, 0, 0);
  const bool found = view_.gsGetNextPrim(scan) > 0;
  view_.gsFreeListHandle(scan);
  return found;
}

}  // namespace ardenix::arch
