#pragma once

#include <memory>
#include <string>

namespace brevan {

class Drawing;

// Where a window takes drawings and symbol files from: what it inserts, and the symbols that a file holds.
class DrawingSource {
 public:
  DrawingSource() = default;
  DrawingSource(const DrawingSource&) = delete;
  DrawingSource& operator=(const DrawingSource&) = delete;
  virtual ~DrawingSource() = default;

  // The path is as a macro names it, in Windows-1252. Throws HostFailure that names the file and the reason.
  virtual std::unique_ptr<Drawing> open(const std::string& path) = 0;
};

}  // namespace brevan
