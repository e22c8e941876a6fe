#pragma once

#include <optional>
#include <vector>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::survey {

// Lets the user pick the corners of a section's outline, shown in a pen, until the first corner is picked again (within
// 0.05 drawing units). The corners, the first one once. Nothing when it was abandoned.
std::optional<std::vector<Point>> traceOutline(CCadWindow& view, int pen);

// By the cross products of the corners, in square drawing units, whichever way round they run.
double areaOf(const std::vector<Point>& corners);

}  // namespace ardenix::survey
