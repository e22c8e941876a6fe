#pragma once

#include <string>

#include "host/drawing/drawing.h"

namespace brevan {

inline constexpr int kDefaultDotsAnInch = 150;

// The drawing's sheet as a PNG picture on white. Throws HostFailure as pdfBytes does, and for a picture of
// more than kMostPixels.
inline constexpr double kMostPixels = 4e8;
std::string pngBytes(const Drawing& drawing, int dotsAnInch = kDefaultDotsAnInch);

}  // namespace brevan
