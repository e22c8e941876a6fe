#pragma once

#include <cstddef>
#include <vector>

#include "arch/roof_skeleton.h"

namespace bench {

// How many seams another program finds for a roof without gables, each counted once.
size_t roofSeamsByCgal(const ardenix::arch::RoofOutline& outline);

}  // namespace bench
