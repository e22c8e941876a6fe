#pragma once

#include "mech/mech_toolset.h"

namespace ardenix::mech {

// The commands that draw tables, each in a file of its dialog.
void drawUserTable(MechToolset& toolset);
void drawCoordinateTable(MechToolset& toolset);
void drawPartsList(MechToolset& toolset);

}  // namespace ardenix::mech
