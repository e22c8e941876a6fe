#include "mech/fastener_drawer.h"

#include "mech/fastener_placement.h"

namespace ardenix {

namespace {

bool drawPart(FastenerDrawer& drawer, ViewMode mode) {
  return (mode == ViewMode::kPlan || drawer.drawSideView()) && (mode == ViewMode::kSide || drawer.drawPlanView());
}

}  // namespace

void drawFasteners(CCadWindow& view, FastenerDrawer& drawer, ViewMode mode) {
  view.SetFocus();
  view.gsSetViewDirty(1);
  view.gsRefresh();
  while (view.gsEscapePressed() == 0 && drawPart(drawer, mode)) { endPart(view); }
  endPart(view);
}

}  // namespace ardenix
