#include "mech/fastener_drawer.h"

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/target_layer.h"

namespace ardenix::mech {

bool FastenerDrawer::drawSideView() {
  const auto placement = placement_.askSideView();
  if (!placement) { return false; }
  placement_.startSideGroup();
  strokeSideView();
  placement_.finishSideView(*placement, reach());
  return true;
}

bool FastenerDrawer::drawPlanView() {
  const auto rotationPoint = placement_.askPlanView();
  if (!rotationPoint) { return false; }
  placement_.startPlanGroup();
  strokePlanView();
  placement_.finishPlanView(*rotationPoint, reach());
  return true;
}

void FastenerDrawer::sketch() {
  constexpr double kApart = 2.5;  // plan radii between the axes
  fastener_.position = {};
  strokeSideView();
  fastener_.position = {kApart * reach().planRadius, 0.0};
  strokePlanView();
}

namespace {

bool drawViews(FastenerDrawer& drawer, ViewMode mode) {
  return (mode == ViewMode::kPlan || drawer.drawSideView()) && (mode == ViewMode::kSide || drawer.drawPlanView());
}

// The step of undo is closed however the part ends.
bool drawPart(FastenerDrawer& drawer, ViewMode mode) {
  if (!drawer.trade().cutByMacros) { return drawViews(drawer, mode); }
  drawer.view().gsExecuteMacro(macroText::kUndoStep);
  const bool drawn = drawViews(drawer, mode);
  drawer.view().gsExecuteMacro(macroText::kUndoStepEnd);
  return drawn;
}

}  // namespace

void drawFasteners(FastenerDrawer& drawer, ViewMode mode) {
  CCadWindow& view = drawer.view();
  view.SetFocus();
  view.gsSetViewDirty(1);
  view.gsRefresh();
  drawRounds(view, [&] {
    if (!mayDrawOn(view, view.gsGetCurrentLayerName()) || !drawPart(drawer, mode)) { return false; }
    endFastener(view);
    return true;
  });
  endFastener(view);
}

}  // namespace ardenix::mech
