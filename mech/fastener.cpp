#include "mech/fastener.h"

namespace ardenix {

LineStyle Fastener::threadStyle() const {
  LineStyle style = shaftStyle();
  style.width = hidden.width;
  return style;
}

Fastener makeFastener(const DefinitionStore& store, std::string_view category) {
  Fastener fastener;
  fastener.solid = lineStyle(store, LineKind::kSolid);
  fastener.hidden = lineStyle(store, LineKind::kHidden);
  fastener.centre = lineStyle(store, LineKind::kCentre);
  fastener.category = category;
  return fastener;
}

}  // namespace ardenix
