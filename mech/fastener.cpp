#include "mech/fastener.h"

namespace ardenix::mech {

LineStyle Fastener::threadStyle(const LineStyle& part) const {
  LineStyle style = part;
  style.width = hidden.width;
  return style;
}

Fastener makeFastener(const DefinitionStore& store) {
  Fastener fastener;
  fastener.solid = lineStyle(store, LineKind::kSolid);
  fastener.hidden = lineStyle(store, LineKind::kHidden);
  fastener.centre = lineStyle(store, LineKind::kCentre);
  return fastener;
}

}  // namespace ardenix::mech
