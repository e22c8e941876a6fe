#include "arch/arch_commands.h"
#include "arch/command_skeleton.h"
#include "arch/elevation_dialog.h"
#include "arch/elevation_drawer.h"

namespace ardenix::arch {

void setElevations(ArchToolset& toolset) { setUp<ElevationDrawer, ElevationDialog>(toolset); }

void drawElevations(ArchToolset& toolset) { setUpAndDraw<ElevationDrawer, ElevationDialog>(toolset); }

}  // namespace ardenix::arch
