#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/drawing/drawing.h"

namespace brevan {

// Keeps every drawing with unsaved work in a file of its own, so that a crash or a kill loses no finished
// command. Files of a session are named after its process; those whose process is gone are offered back.
class Recovery {
 public:
  struct Kept {
    std::string file;  // native path
    std::string name;  // of the drawing, Windows-1252
  };

  explicit Recovery(std::string folder);
  // Writes the drawing as it is now, where it has changed since; returns "" or why it could not be kept.
  std::string keep(const std::string& name, const Drawing& drawing);
  // What is saved or given up needs no keeping.
  void drop(const std::string& name);
  // Of sessions that ended without dropping them.
  [[nodiscard]] std::vector<Kept> left() const;
  static void remove(const std::string& file);

 private:
  struct File {
    std::string path;
    uint64_t revision = 0;  // of the drawing kept there; 0: none yet
  };
  [[nodiscard]] File& fileOf(const std::string& name);
  std::string folder_;
  std::map<std::string, File> files_;
};

}  // namespace brevan
