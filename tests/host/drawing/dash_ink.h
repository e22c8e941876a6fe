#pragma once

#include <cmath>
#include <numeric>

#include "host/drawing/dash_pattern.h"

namespace brevan {

// How far a place along a stroke lies inside of a dash, or below 0 inside of a gap; 1 for a continuous stroke.
// Reads lengths and start as pens and picture formats do.
inline double inkAt(const DashPattern& dashes, double along) {
  if (dashes.lengths.empty()) { return 1.0; }
  const double whole = std::accumulate(dashes.lengths.begin(), dashes.lengths.end(), 0.0);
  double left = std::fmod(along + dashes.start, whole);
  for (size_t at = 0; at < dashes.lengths.size(); ++at) {
    const double length = dashes.lengths[at];
    if (left <= length) { return (at % 2 == 0 ? 1.0 : -1.0) * std::min(left, length - left); }
    left -= length;
  }
  return 0.0;
}

}  // namespace brevan
