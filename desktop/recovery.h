#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "desktop/session_lock.h"
#include "host/files/drg_upkeep.h"

namespace brevan {

// Keeps every drawing with unsaved work in a file of its own, so that a crash or a kill loses nothing that was drawn
// before the last question. Files of a session bear the name of its lock; those whose lock nobody holds are offered
// back.
class Recovery {
 public:
  struct Kept {
    std::string file;  // native path
    std::string name;  // of the drawing, Windows-1252
  };

  explicit Recovery(std::string folder);
  // The drawing was just opened from this drawing file or saved to it, so keeping it can start from there.
  void begin(const std::string& name, Drawing& drawing, const std::string& file);
  // Keeps the drawing as it is now, where it has changed since, and the points that the running command was given and
  // has drawn nothing from yet; returns "" or why it could not be kept.
  std::string keep(const std::string& name, Drawing& drawing, std::span<const Point> given = {});
  // Whether there is a file of the drawing.
  [[nodiscard]] bool keeps(const std::string& name) const;
  // What is saved or given up needs no keeping.
  void drop(const std::string& name);
  // The files of sessions that ended without dropping them.
  [[nodiscard]] std::vector<Kept> left() const;
  // Such a file's drawing, with the points given last and the way through them on a layer of their own. Throws
  // HostFailure.
  [[nodiscard]] static Drawing read(const std::string& file);
  // Takes the lock that its session left with it when it is the last.
  static void remove(const std::string& file);

 private:
  [[nodiscard]] DrgUpkeep& started(const std::string& name, Drawing& drawing, const std::string& base);
  [[nodiscard]] std::string newPath(const std::string& name);
  std::string folder_;
  void keepPoints(const std::string& name, std::span<const Point> given);
  [[nodiscard]] bool keepsAny() const;
  std::unique_ptr<SessionLock> lock_;  // held while anything is kept
  int files_ = 0;
  std::map<std::string, DrgUpkeep> kept_;      // by the drawing's name
  std::map<std::string, std::string> points_;  // likewise the file of the points given
};

}  // namespace brevan
