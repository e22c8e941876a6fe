#pragma once

#include <string>

#include "host/drawing/drawing_source.h"

namespace brevan {

class FileServices;

// The ending without its full stop, in lower case.
std::string fileEnding(const std::string& path);

// Whether readDrawing knows files of this ending.
bool isReadableDrawing(const std::string& path);

// Reads the drawing file or exchange file that a native path names. Throws HostFailure.
ReadDrawing readDrawing(const std::string& path);

// The files that the module and its macros reach.
class FileDrawings : public DrawingSource {
 public:
  explicit FileDrawings(const FileServices& files) : files_(files) {}
  ReadDrawing open(const std::string& path) override;

 private:
  const FileServices& files_;
};

}  // namespace brevan
