#include "frame/drafting/target_layer.h"

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix {

bool mayDrawOn(CCadWindow& view, std::string_view layer) {
  LayerDef target;
  const int index = view.gsGetLayerIndexFromName(layer);
  if (index < 0 || view.gsGetLayerDefIndex(index, target) == 0 || !target.locked) { return true; }
  ErrorMessage(numberText::format("The layer \"%s\" is locked, no wall can be drawn on it", layer), &view);
  return false;
}

}  // namespace ardenix
