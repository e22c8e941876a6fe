#pragma once

#include <span>
#include <string>

#include "host/drawing/drawing.h"
#include "host/files/dxf/write/text.h"
#include "host/geometry/loop.h"

namespace brevan {

// The whole drawing as an ASCII DXF file: R2010 by default, R2000 for older readers. Coordinates are
// drawing units as seen on paper. Hidden layers are written switched off. Throws HostFailure for a symbol
// that cannot be expanded.
std::string drawingDxf(const Drawing& drawing, DxfVersion version = DxfVersion::kR2010);

// Loops alone, as polylines, circles as such, on the layer "0" of a drawing with these parameters.
std::string loopsDxf(std::span<const Loop> loops, const Parameters& parameters);

}  // namespace brevan
