#include "render/painting_checks.h"

#include "frame/host/core_services.h"

namespace brevan {

namespace {

bool showsSomething(const Drawing& drawing) {
  for (int index = 0; index < drawing.layerCount(); ++index) {
    const Layer* layer = drawing.layer(index);
    if (layer != nullptr && layer->visible && !drawing.onLayer(index).empty()) { return true; }
  }
  return false;
}

}  // namespace

void requirePainted(size_t strokes, const Drawing& drawing) {
  if (strokes > 0 || !showsSomething(drawing)) { return; }
  throw HostFailure("Nothing of the drawing could be painted: its visible layers hold nothing that has a size.");
}

}  // namespace brevan
