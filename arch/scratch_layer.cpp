#include "arch/scratch_layer.h"

#include "frame/drafting/macro_texts.h"

namespace ardenix::arch {

void finishOnLayer(CCadWindow& view, int scratchLayer, const PartPlace& place) {
  view.gsClearSelection();
  view.gsExecuteMacro(macroText::selectLayer(kScratchLinkLayer));
  view.gsExecuteMacro(macroText::linkSelection(place.group));
  view.gsExecuteMacro(macroText::moveToLayer(place.layer));
  view.gsSetCurrentLayer(place.currentLayer);
  view.gsDeleteLayer(scratchLayer);
  view.gsClearSelection();
  view.gsClearWorkSpace();
  view.gsExecuteMacro(macroText::kRootParent);
  view.gsSetViewDirty(1);
  view.gsRefresh();
}

}  // namespace ardenix::arch
