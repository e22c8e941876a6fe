#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/core/safe_file.h"
#include "host/drawing/drawing.h"

namespace brevan {

class DrgDatabase;

// Keeps a drawing file in step with a drawing that is being worked on, at the cost of what changed. It alone
// asks the drawing what was touched.
class DrgUpkeep {
 public:
  // Gives native paths that no file has yet; a file that cannot be changed in place is written anew under the next.
  using NewPath = std::function<std::string()>;

  // base: a file that holds the drawing as it is now, or none; the kept file starts as its copy where nobody has
  // changed it by then. No file is made before the first keep.
  DrgUpkeep(NewPath newPath, Drawing& drawing, std::string base = "");
  ~DrgUpkeep();
  DrgUpkeep(const DrgUpkeep&) = delete;
  DrgUpkeep& operator=(const DrgUpkeep&) = delete;

  // Brings the file up to date, durably, whole or not at all; the drawing is the one of the constructor. Throws
  // HostFailure, and the next call makes up for it.
  void keep(Drawing& drawing);
  // The file kept; empty before the first keep.
  [[nodiscard]] const std::string& path() const { return path_; }

  // Takes back what a program that was killed had begun to write into such a file, so that it can be read. Throws
  // HostFailure.
  static void settle(const std::string& path);
  // Removes such a file; one that is not there is no error.
  static void remove(const std::string& path);

 private:
  [[nodiscard]] std::unique_ptr<DrgDatabase> copyOfBase();
  [[nodiscard]] std::unique_ptr<DrgDatabase> writtenAnew(const Drawing& drawing);

  NewPath newPath_;
  std::string base_;
  FileStamp baseStamp_;
  std::string path_;
  std::unique_ptr<DrgDatabase> file_;  // null: not in step
  std::optional<uint64_t> kept_;       // the drawing's revision
};

}  // namespace brevan
