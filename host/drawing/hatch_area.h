#pragma once

#include <optional>
#include <vector>

#include "host/drawing/boundary_map.h"
#include "host/drawing/drawing.h"

namespace brevan {

// What a hatch round a point fills: the smallest closed boundary round it, then what stands within that is left out,
// closed figures and visible texts with a margin of half their height. Empty where no boundary surrounds the point.
std::vector<HatchLoop> hatchAreaAround(const Drawing& drawing, BoundaryMap& map, Point p);

}  // namespace brevan
