#pragma once

#include "frame/host/cad_window.h"

namespace ardenix::mech {

// Visits what is visible of a type, each made current, in the order in which it was drawn.
template <class Visit>
void forEachVisible(CCadWindow& view, PrimitiveType type, const Visit& visit) {
  const int scan = view.gsGetListHandle(type, -1, 0, 0, 0, 0, 0, 0, 0);
  while (view.gsGetNextPrim(scan) != 0) {
    PrimHeader header;
    LayerDef layer;
    view.gsGetPrimHeader(header);
    view.gsGetLayerDefIndex(header.layer, layer);
    if (layer.visible) { visit(); }
  }
  view.gsFreeListHandle(scan);
}

}  // namespace ardenix::mech
