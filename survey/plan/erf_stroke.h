#pragma once

#include <vector>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::survey {

// A point in each erf that a stroke crosses, in their order: the middles between the lines and arcs across it. The erf
// it begins in comes first.
std::vector<Point> pointsAlongStroke(CCadWindow& view, Point from, Point to);

}  // namespace ardenix::survey
