#include "frame/drafting/scratch_layer.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/host/core_services.h"

namespace ardenix {

bool isScratchName(std::string_view layer) {
  using namespace scratchNames;
  constexpr std::string_view kNames[] = {kMechanical, kMechanicalLinked, kArchitectural, kArchitecturalRepeated,
                                         kSurveyDimensions};
  return std::ranges::find(kNames, layer) != std::end(kNames);
}

// The host leaves what is locked alone.
void removeScratchLayer(CCadWindow& view, std::string_view name) {
  const int leftover = view.gsGetLayerIndexFromName(name);
  LayerDef layer;
  if (leftover < 0 || view.gsGetLayerDefIndex(leftover, layer) == 0) { return; }
  layer.locked = false;
  view.gsSetLayerDefIndex(leftover, layer);
  view.gsDeleteLayer(leftover);
}

ScratchLayer::ScratchLayer(CCadWindow& view, std::string_view name, Surroundings surroundings)
    : view_(view), name_(name) {
  removeScratchLayer(view_, name_);
  current_ = view_.gsGetCurrentLayer();
  LayerDef current;
  const bool shown = view_.gsGetLayerDefIndex(current_, current) != 0 && current.visible;
  layer_ = view_.gsAddLayer(name_);
  if (surroundings == Surroundings::kShown || !shown) { return; }
  hidden_ = current_;
  view_.gsSetLayerVisibility(hidden_, 0, 0);
}

// What the host refuses here it has rolled back, or will.
ScratchLayer::~ScratchLayer() {
  try {
    discard();
  } catch (const HostFailure&) { return; }
}

void ScratchLayer::selectAll() {
  view_.gsClearSelection();
  view_.gsExecuteMacro(macroText::selectLayer(name_));
}

void ScratchLayer::link(std::string_view group) {
  selectAll();
  view_.gsExecuteMacro(macroText::linkSelection(group));
}

void ScratchLayer::moveTo(std::string_view target) {
  view_.gsExecuteMacro(macroText::moveToLayer(target));
  discard();
}

void ScratchLayer::copyTo(std::string_view target) {
  view_.gsExecuteMacro(macroText::copyToLayer(target));
  discard();
}

void ScratchLayer::showSurroundings() {
  const int hidden = std::exchange(hidden_, kNone);
  if (hidden != kNone) { view_.gsSetLayerVisibility(hidden, 1, 0); }
}

void ScratchLayer::discard() {
  if (layer_ == kNone) { return; }
  const int layer = std::exchange(layer_, kNone);
  showSurroundings();
  view_.gsSetCurrentLayer(current_);
  view_.gsDeleteLayer(layer);
}

}  // namespace ardenix
