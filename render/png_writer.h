#pragma once

#include <string>

#include "host/files/export_options.h"

namespace brevan {

// The drawing's page as a PNG picture on white. Throws HostFailure as pdfBytes does, and for a picture of
// more than kMostPixels.
inline constexpr double kMostPixels = 4e8;
std::string pngBytes(const Drawing& drawing, const ExportOptions& options = {});

}  // namespace brevan
