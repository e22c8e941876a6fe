#pragma once

#include <optional>

#include "frame/host/cad_window.h"
#include "survey/figure.h"

namespace ardenix::survey {

struct TracedFigure {
  Figure figure;
  Point misclosure;  // from the first corner to where the last side was taken to end
};

// Lets the user pick and name the corners of the outside figure, until the first corner is picked again (within 0.1
// drawing units). Nothing when it was abandoned.
std::optional<TracedFigure> traceFigure(CCadWindow& view);

}  // namespace ardenix::survey
