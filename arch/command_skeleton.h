#pragma once

#include "arch/arch_toolset.h"
#include "frame/drafting/part_round.h"

namespace ardenix::arch {

// The two shapes of an architectural command. A Drawer is made from the specification store, reads its
// settings, and draws one part a round: drawRound() is false when the user has enough. A Setup is the
// dialog that edits a drawer's settings and writes them on OK; run() is true then.

template <class Drawer, class Setup>
bool setUp(ArchToolset& toolset) {
  if (!toolset.openSpecification()) { return false; }
  Drawer drawer(toolset.store());
  return Setup(toolset.services(), toolset.store(), drawer).run();
}

// Each round draws by what the dialog wrote.
template <class Drawer, class Setup>
void setUpAndDraw(ArchToolset& toolset) {
  if (!setUp<Drawer, Setup>(toolset)) { return; }
  drawRounds(toolset.view(), [&toolset] { return Drawer(toolset.store()).drawRound(); });
}

}  // namespace ardenix::arch
