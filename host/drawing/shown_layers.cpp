#include "host/drawing/shown_layers.h"

#include <algorithm>

#include "frame/host/core_services.h"

namespace brevan {

ShownLayers::ShownLayers(const Drawing& drawing, std::span<const std::string> names)
    : shown_(static_cast<size_t>(drawing.layerCount())) {
  for (const std::string& name : names) {
    if (drawing.layerNamed(name) < 0) { throw HostFailure("There is no layer \"" + name + "\"."); }
  }
  for (int index = 0; index < drawing.layerCount(); ++index) {
    const Layer* layer = drawing.layer(index);
    const bool wanted =
        layer != nullptr && (names.empty() || std::find(names.begin(), names.end(), layer->name) != names.end());
    shown_[static_cast<size_t>(index)] = wanted && layer->visible;
  }
}

}  // namespace brevan
