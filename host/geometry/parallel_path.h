#pragma once

#include <vector>

#include "host/geometry/curve.h"

namespace brevan {

// Where a parallel ends at an open end of its path: on a line through the path's end that leans by this
// angle from the direction of travel to the right; 90 degrees is square.
struct EndAngles {
  double start = kPi / 2.0;
  double end = kPi / 2.0;
};

// The parallel of a path of curves that follow each other, above 0 to the right of travel. Outer corners
// are mitred, or rounded about the path's corner; a mitre that would run far out is rounded, too. A mitred
// corner counts as sharp for what passes by it: every piece ends where it crosses the next one. No part of
// the parallel lies nearer to the path than the offset: what would is left out, all of it where the offset
// outgrows the path. Where two pieces would lie on each other there is one, or none where they run against
// each other. Pieces come in the order of travel.
std::vector<Curve> parallelOf(const std::vector<Curve>& path, bool closed, double offset, bool rounded,
                              const EndAngles& angles = {});

}  // namespace brevan
