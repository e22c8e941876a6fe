#include "mech/fastener.h"

#include <algorithm>

#include "frame/drafting/sheet_axes.h"

namespace ardenix::mech {

LineStyle Fastener::threadStyle(const LineStyle& part) const {
  LineStyle style = part;
  style.width = hidden.width;
  return style;
}

double Fastener::rootRadius(double root, double crest) const {
  if (root < crest) { return std::max(std::min(root, crest - threadGap), 0.0); }
  return root > crest ? std::max(root, crest + threadGap) : root;
}

Fastener makeFastener(CCadWindow& view, const DefinitionStore& store) {
  Fastener fastener;
  fastener.threadGap = threadGap(store) * paperMillimetre(view);
  fastener.solid = lineStyle(store, LineKind::kSolid);
  fastener.hidden = lineStyle(store, LineKind::kHidden);
  fastener.centre = lineStyle(store, LineKind::kCentre);
  return fastener;
}

}  // namespace ardenix::mech
