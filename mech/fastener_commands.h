#pragma once

#include "mech/mech_toolset.h"

namespace ardenix::mech {

// The commands that draw fasteners, each in a file of its kind: the dialog, then part after part.
void drawBolts(MechToolset& toolset);
void drawScrews(MechToolset& toolset);
void drawNuts(MechToolset& toolset);
void drawHoles(MechToolset& toolset);
void drawRivets(MechToolset& toolset);

}  // namespace ardenix::mech
