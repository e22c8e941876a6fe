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
  static_cast<LineStyles&>(fastener) = lineStyles(store);
  fastener.threadGap = threadGap(store) * paperMillimetre(view);
  return fastener;
}

}  // namespace ardenix::mech
