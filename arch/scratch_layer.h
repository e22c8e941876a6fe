#pragma once

#include <string_view>

#include "frame/host/cad_window.h"

namespace ardenix::arch {

// The layer on which a drawing round draws, and from which the finished part goes to its own.
inline constexpr std::string_view kScratchLinkLayer = "ARCH_SCRATCH_LNK";

// Where a finished part goes.
struct PartPlace {
  std::string_view group;  // as the numbering named it
  std::string_view layer;
  int currentLayer;  // the layer to be current afterwards
};

// Links what lies on the scratch layer into one group, moves it to its layer and deletes the scratch layer.
void finishOnLayer(CCadWindow& view, int scratchLayer, const PartPlace& place);

}  // namespace ardenix::arch
