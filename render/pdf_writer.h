#pragma once

#include <string>
#include <string_view>

#include "host/drawing/drawing.h"

namespace brevan {

// The drawing's sheet as a PDF file: one page exactly as large as the sheet, at the drawing's scale, texts
// as text in embedded fonts. The same drawing gives the same bytes. The title is Windows-1252. Throws
// HostFailure when fonts are missing or nothing could be painted of a drawing that is not empty.
std::string pdfBytes(const Drawing& drawing, std::string_view title);

}  // namespace brevan
