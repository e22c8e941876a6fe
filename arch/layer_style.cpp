#include "arch/layer_style.h"

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/records.h"

namespace ardenix::arch {

LayerStyle readLayerStyle(std::string_view record, int first) {
  const LayerStyle usual;
  return {{.pen = coreGetFieldInt(record, usual.pen, first, kFieldSeparator),
           .linetype = coreGetFieldInt(record, usual.linetype, first + 1, kFieldSeparator),
           .width = coreGetFieldDouble(record, usual.width, first + 2, kFieldSeparator)},
          coreGetFieldInt(record, usual.visible ? 1 : 0, first + 3, kFieldSeparator) != 0};
}

std::string layerStyleFields(const LayerStyle& style) {
  return numberText::format("%d,%d,%.2f,%d", style.pen, style.linetype, style.width, style.visible ? 1 : 0);
}

}  // namespace ardenix::arch
