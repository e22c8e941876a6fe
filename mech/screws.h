#pragma once

#include "mech/mech_toolset.h"

namespace ardenix {

// The command that draws socket screws.
void drawScrews(MechToolset& toolset);

}  // namespace ardenix
