#include "arch/arch_commands.h"
#include "arch/command_skeleton.h"
#include "arch/roof_dialog.h"
#include "arch/roof_drawer.h"
#include "arch/roof_line_dialog.h"
#include "arch/roof_line_drawer.h"

namespace ardenix::arch {

void setRoofLine(ArchToolset& toolset) { setUp<RoofLineDrawer, RoofLineDialog>(toolset); }

void drawRoofLine(ArchToolset& toolset) {
  if (setUp<RoofLineDrawer, RoofLineDialog>(toolset)) { RoofLineDrawer(toolset.store()).draw(); }
}

void setRoofs(ArchToolset& toolset) { setUp<RoofDrawer, RoofDialog>(toolset); }

void drawRoofs(ArchToolset& toolset) { setUpAndDraw<RoofDrawer, RoofDialog>(toolset); }

}  // namespace ardenix::arch
