#pragma once

#include "mech/annotation_part.h"
#include "mech/tolerance_frame.h"

namespace ardenix::mech {

// Asks for the lower left corner of a tolerance frame and draws it; what stands in the way is told.
void drawToleranceFrame(CCadWindow& view, const DefinitionStore& store, const ToleranceFrame& frame);
// The frame where nobody is asked, with its lower left corner at a point.
void sketchToleranceFrame(AnnotationPen& pen, const ToleranceFrame& frame, Point corner);

}  // namespace ardenix::mech
