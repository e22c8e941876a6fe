#pragma once

#include "mech/mech_toolset.h"

namespace ardenix {

// The command that draws drilled holes.
void drawHoles(MechToolset& toolset);

}  // namespace ardenix
