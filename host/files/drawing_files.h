#pragma once

#include <map>
#include <memory>
#include <string>

#include "host/core/safe_file.h"
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
  // Every annotation names its symbol file anew, so those used last are kept until they change.
  std::shared_ptr<const Drawing> symbolFile(const std::string& path) override;

 private:
  struct KeptFile {
    FileStamp stamp;
    std::shared_ptr<const Drawing> drawing;
  };
  static constexpr size_t kMostKept = 16;

  const FileServices& files_;
  std::map<std::string, KeptFile> kept_;  // by native path
};

}  // namespace brevan
