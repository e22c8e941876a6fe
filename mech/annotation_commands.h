#pragma once

#include "mech/mech_toolset.h"

namespace ardenix::mech {

// The commands of annotations, each in a file of its kind.
void setUpAnnotations(MechToolset& toolset);
void drawSurfaceFinish(MechToolset& toolset);
void drawWelds(MechToolset& toolset);
void drawTolerances(MechToolset& toolset);
void drawToleranceDatum(MechToolset& toolset);

// Shows the Annotation Setup dialog before another window.
void runAnnotationSetup(const Services& services, Configuration& configuration, CWnd* owner);

}  // namespace ardenix::mech
