#pragma once

#include <string>

#include "host/files/export_options.h"

namespace brevan {

// The drawing's page as SVG: the picture is as large as the paper, a user unit is a millimetre, each
// layer shown is one group in the order of the layers. Throws HostFailure as pageOf does.
std::string drawingSvg(const Drawing& drawing, const ExportOptions& options = {});

}  // namespace brevan
