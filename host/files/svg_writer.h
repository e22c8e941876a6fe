#pragma once

#include <string>

#include "host/drawing/drawing.h"

namespace brevan {

// The drawing's sheet as SVG: the picture is as large as the sheet, a user unit is a millimetre, each
// visible layer is one group in the order of the layers. Throws HostFailure for a symbol that cannot be
// expanded.
std::string drawingSvg(const Drawing& drawing);

}  // namespace brevan
