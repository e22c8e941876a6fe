#pragma once

#include "frame/host/cad_window.h"
#include "mech/definition_store.h"
#include "mech/tolerance_frame.h"

namespace ardenix::mech {

// Asks for the lower left corner of a tolerance frame and draws it; what stands in the way is told.
void drawToleranceFrame(CCadWindow& view, const DefinitionStore& store, const ToleranceFrame& frame);
// The frame where nobody is asked: a picture of it.
void sketchToleranceFrame(CCadWindow& view, const DefinitionStore& store, const ToleranceFrame& frame);

}  // namespace ardenix::mech
