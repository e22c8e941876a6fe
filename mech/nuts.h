#pragma once

#include "mech/mech_toolset.h"

namespace ardenix {

// The command that draws nuts.
void drawNuts(MechToolset& toolset);

}  // namespace ardenix
