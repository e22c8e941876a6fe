#pragma once

#include <string>
#include <string_view>

#include "host/files/export_options.h"

namespace brevan {

// The drawing as a PDF file of one page, exactly as large as its paper, texts as text in embedded fonts. The same
// drawing gives the same bytes. The title is Windows-1252. Throws HostFailure when fonts are missing, and as pageOf
// does.
std::string pdfBytes(const Drawing& drawing, std::string_view title, const ExportOptions& options = {});

}  // namespace brevan
