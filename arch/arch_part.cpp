#include "arch/arch_part.h"

#include "frame/drafting/group_numbering.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

ArchPart::ArchPart(CCadWindow& view, const PartPlace& place)
    : view_(view),
      layer_(place.layer),
      before_(view.gsGetCurrentLayer()),
      isNew_(view.gsGetLayerIndexFromName(place.layer) < 0),
      group_(startNumberedGroup(view, place.parent, place.prefix)),
      target_(view.gsAddLayer(place.layer)),
      scratch_(view, scratchNames::kArchitectural) {}

// What the host refuses here it rolls back.
ArchPart::~ArchPart() {
  try {
    if (!finished_) { abandon(); }
  } catch (const HostFailure&) { return; }
}

void ArchPart::finish(CurrentLayer afterwards) {
  finished_ = true;
  scratch_.leaveCurrent(afterwards == CurrentLayer::kTarget ? target_ : before_);
  scratch_.link(group_);
  scratch_.moveTo(layer_);
  leave();
}

void ArchPart::abandon() {
  scratch_.leaveCurrent(before_);
  scratch_.discard();
  if (isNew_) { view_.gsDeleteLayer(target_); }
  leave();
}

void ArchPart::leave() {
  clearAll(view_);
  view_.gsExecuteMacro(macroText::kRootParent);
  view_.gsSetViewDirty(1);
  view_.gsRefresh();
}

}  // namespace ardenix::arch
