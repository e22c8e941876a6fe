#pragma once

#include "frame/host/dialog_controls.h"
#include "mech/hole_drawer.h"

namespace ardenix::mech {

// Paints a hole as the hole dialog shows it while it is being described: white on black, the side view in a canvas
// more than 200 pixels high, the plan in any other. Coordinates are cut to whole pixels.
void paintHolePreview(dialog::Canvas& canvas, const HoleRecord& hole);

}  // namespace ardenix::mech
