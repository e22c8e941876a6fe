#pragma once

#include "mech/mech_toolset.h"

namespace ardenix {

// The command that draws rivets.
void drawRivets(MechToolset& toolset);

}  // namespace ardenix
