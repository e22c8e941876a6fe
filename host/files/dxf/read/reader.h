#pragma once

#include <string>
#include <string_view>

#include "host/drawing/drawing_source.h"

namespace brevan {

inline constexpr size_t kMostDxfBytes = size_t{1} << 30;

// The drawing that an ASCII exchange file's bytes hold, from R12 to R2018; `file` names it in failures, which
// bear the line. docs/drawing-files.md says what is read, and as what. Throws HostFailure.
ReadDrawing drawingFromDxf(std::string_view bytes, const std::string& file);

// Reads the file first.
ReadDrawing openDxf(const std::string& path);

}  // namespace brevan
