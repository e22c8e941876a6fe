#pragma once

#include "mech/mech_toolset.h"

namespace ardenix {

// The command that draws hexagon bolts.
void drawBolts(MechToolset& toolset);

}  // namespace ardenix
