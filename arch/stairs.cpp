#include "arch/arch_commands.h"
#include "arch/command_skeleton.h"
#include "arch/stair_dialog.h"
#include "arch/stair_drawer.h"

namespace ardenix::arch {

void setStairs(ArchToolset& toolset) { setUp<StairDrawer, StairDialog>(toolset); }

void drawStairs(ArchToolset& toolset) { setUpAndDraw<StairDrawer, StairDialog>(toolset); }

}  // namespace ardenix::arch
