#include "host/window/macro_state.h"

#include "host/drawing/boundary_map.h"

namespace brevan {

MacroState::MacroState() = default;
MacroState::~MacroState() = default;

}  // namespace brevan
