#pragma once

#include "mech/mech_toolset.h"

namespace ardenix::mech {

// The commands that draw parts by the points that they are placed by, each in a file of its kind.
void drawFlanges(MechToolset& toolset);
void drawGears(MechToolset& toolset);

}  // namespace ardenix::mech
