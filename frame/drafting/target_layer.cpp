#include "frame/drafting/target_layer.h"

#include "frame/drafting/scratch_layer.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix {

namespace {

// What keeps parts off a layer; nothing for one that takes them. What is hidden cannot be turned, copied or cut.
std::string_view obstacle(CCadWindow& view, std::string_view layer) {
  if (isScratchName(layer)) { return "holds parts in the making only"; }
  LayerDef target;
  const int index = view.gsGetLayerIndexFromName(layer);
  if (index < 0 || view.gsGetLayerDefIndex(index, target) == 0) { return ""; }
  if (target.locked) { return "is locked"; }
  return target.visible ? "" : "is hidden";
}

}  // namespace

bool mayDrawOn(CCadWindow& view, std::string_view layer) {
  const std::string_view why = obstacle(view, layer);
  if (why.empty()) { return true; }
  ErrorMessage(numberText::format("The layer \"%s\" %s, nothing can be drawn on it", layer, why), &view);
  return false;
}

}  // namespace ardenix
