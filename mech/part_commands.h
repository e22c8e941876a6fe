#pragma once

#include "mech/mech_toolset.h"

namespace ardenix::mech {

// The commands that draw parts by the points that they are placed by, each in a file of its kind.
void drawFlanges(MechToolset& toolset);
void drawGears(MechToolset& toolset);
void drawLinks(MechToolset& toolset);
void drawShafts(MechToolset& toolset);

// Circles about one centre with centre lines, by a list of diameters; centre lines of circles that are there.
void drawCircles(MechToolset& toolset);
void addCentreLines(MechToolset& toolset);
void drawSlots(MechToolset& toolset);
// Views and pattern of ducts from a rectangle to a circle.
void drawDucts(MechToolset& toolset);

}  // namespace ardenix::mech
