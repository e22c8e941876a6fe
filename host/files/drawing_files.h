#pragma once

#include <string>

#include "host/drawing/drawing.h"

namespace brevan {

// A drawing read from a file, with what of the file a drawing has no place for.
struct ReadDrawing {
  Drawing drawing;
  std::string notRead;  // "3 HATCH, 1 IMAGE"; empty: all was read
};

// The ending without its full stop, in lower case.
std::string fileEnding(const std::string& path);

// Whether readDrawing knows files of this ending.
bool isReadableDrawing(const std::string& path);

// Reads the drawing file or exchange file that a native path names. Throws HostFailure.
ReadDrawing readDrawing(const std::string& path);

}  // namespace brevan
