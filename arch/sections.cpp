#include "arch/arch_commands.h"
#include "arch/command_skeleton.h"
#include "arch/section_dialog.h"
#include "arch/section_drawer.h"

namespace ardenix::arch {

void setSections(ArchToolset& toolset) { setUp<SectionDrawer, SectionDialog>(toolset); }

void drawSections(ArchToolset& toolset) { setUpAndDraw<SectionDrawer, SectionDialog>(toolset); }

}  // namespace ardenix::arch
