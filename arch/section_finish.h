#pragma once

#include "arch/section_drawing.h"

namespace ardenix::arch {

// What makes a section readable beyond its lines: materials of what is cut, and its heights. Draws what the settings
// ask for, nothing where they ask for none.
void finishSection(const SectionSheet& sheet);

}  // namespace ardenix::arch
