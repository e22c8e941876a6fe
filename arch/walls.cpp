#include "arch/arch_commands.h"
#include "arch/command_skeleton.h"
#include "arch/wall_dialog.h"
#include "arch/wall_drawer.h"

namespace ardenix::arch {

void setWalls(ArchToolset& toolset) { setUp<WallDrawer, WallDialog>(toolset); }

void drawWalls(ArchToolset& toolset) { setUpAndDraw<WallDrawer, WallDialog>(toolset); }

}  // namespace ardenix::arch
