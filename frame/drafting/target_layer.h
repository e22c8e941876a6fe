#pragma once

#include <string_view>

#include "frame/host/cad_window.h"

namespace ardenix {

// Whether a part can be drawn for a layer; one that is not there will be made. Where it cannot, says so in a message:
// the layer is locked or hidden, or it bears the name of a scratch layer.
bool mayDrawOn(CCadWindow& view, std::string_view layer);

}  // namespace ardenix
