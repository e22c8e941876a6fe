#pragma once

#include <memory>
#include <string>
#include <utility>

#include "host/drawing/drawing.h"

namespace brevan {

// A drawing read from a file, with what of the file a drawing has no place for.
struct ReadDrawing {
  Drawing drawing;
  std::string notRead;  // "3 HATCH, 1 IMAGE"; empty: all was read
};

// Where a window takes drawings and symbol files from: what it inserts, and the symbols that a file holds.
class DrawingSource {
 public:
  DrawingSource() = default;
  DrawingSource(const DrawingSource&) = delete;
  DrawingSource& operator=(const DrawingSource&) = delete;
  virtual ~DrawingSource() = default;

  // The path is as a macro names it, in Windows-1252. Throws HostFailure that names the file and the reason.
  virtual ReadDrawing open(const std::string& path) = 0;
  // A symbol file, likewise. A source may hand out the same drawing again while the file is unchanged.
  virtual std::shared_ptr<const Drawing> symbolFile(const std::string& path) {
    return std::make_shared<const Drawing>(std::move(open(path).drawing));
  }
};

}  // namespace brevan
