#include "mech/placed_drawer.h"

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/scratch_layer.h"
#include "frame/drafting/target_layer.h"
#include "frame/host/core_services.h"

namespace ardenix::mech {

void PlacedDrawer::placeParts() {
  view_.SetFocus();
  placeAll();
  endPart(view_);
}

void PlacedDrawer::placeAll() {
  drawRounds(view_, [this] { return mayDrawOn(view_, view_.gsGetCurrentLayerName()) && placePart(); });
}

// Both points are asked before anything is drawn: a part is drawn whole or not at all.
bool PlacedDrawer::placePart() {
  if (!trade_.scratchLayer.empty()) { removeScratchLayer(view_, trade_.scratchLayer); }
  clearAll(view_);
  const auto position = askPlace(view_, trade_.positionPrompt);
  if (!position) { return false; }
  std::optional<Point> target;
  if (!trade_.directionPrompt.empty()) {
    target = askPoint(view_, trade_.directionPrompt);
    if (!target) { return false; }
  }
  position_ = *position;
  drawPart(target);
  tellNotice();
  return true;
}

void PlacedDrawer::tellNotice() {
  if (notice_.empty() || noticeTold_) { return; }
  InfoMessage(notice_, &view_);
  noticeTold_ = true;
}

void PlacedDrawer::openGroup() { group_ = startPart(view_, trade_.category, groupPrefix()); }

void PlacedDrawer::drawPart(std::optional<Point> target) {
  const std::string layer = view_.gsGetCurrentLayerName();
  std::optional<ScratchLayer> scratch;
  if (!trade_.scratchLayer.empty()) { scratch.emplace(view_, trade_.scratchLayer, Surroundings::kCurrentHidden); }
  openGroup();
  stroke();
  if (scratch) { scratch->showSurroundings(); }
  strokeAxes();
  selectDrawn();
  if (target) { turnPart(view_, position_, reference(), *target); }
  if (scratch) { scratch->moveTo(layer); }
  finished();
  clearAll(view_);
  send(macroText::kRootParent);
  view_.gsSetViewDirty(1);
  view_.gsRefresh();
}

void PlacedDrawer::selectDrawn() const {
  view_.gsClearSelection();
  selectPart(view_, trade_.category, group_);
}

void PlacedDrawer::sketch() {
  position_ = {};
  openGroup();
  stroke();
  strokeAxes();
}

}  // namespace ardenix::mech
