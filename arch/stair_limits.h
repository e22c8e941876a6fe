#pragma once

#include <string>

#include "arch/building_standard.h"
#include "arch/stair_records.h"

namespace ardenix::arch {

// Which limits of a building standard a stair keeps: "rise 200 of at most 200, going 223 of at least 250: too short".
std::string treadsAgainst(const StairLimits& limits, const TreadRecord& treads);
// The widest gap that a railing leaves, which lies beside a newel; "" without balusters.
std::string gapAgainst(const StairLimits& limits, const Stair& stair);

}  // namespace ardenix::arch
