#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/ini.h"
#include "survey/control_listings.h"
#include "survey/control_point.h"

namespace ardenix::survey {

// A library of known control points in an INI file: section "TRIG" for beacons, value flag,Y,X, the flag 1 where the
// key ends in the beacon's number; section "TSM" for town survey marks, value Y,X.
class ControlStore {
 public:
  // Throws HostFailure for a file that cannot be read; a missing one is empty.
  explicit ControlStore(std::string_view path) : path_(path), file_(path) {}

  [[nodiscard]] const std::string& path() const { return path_; }
  // The keys of a category, in the file's order.
  [[nodiscard]] std::vector<std::string> keys(ControlCategory category) const;
  // The point of a key; nothing where there is none or it has no coordinates.
  [[nodiscard]] std::optional<ControlPoint> find(ControlCategory category, std::string_view key) const;
  // Throw HostFailure for a name that no key can be. Kept in memory until saved.
  void add(ControlCategory category, const ListedPoint& point);
  void add(const ControlPoint& point);
  void save() { file_.Save(); }

 private:
  std::string path_;
  INI_LIST file_;
};

// The key of a point: a beacon's name and number, a mark's name.
std::string controlKey(const ControlPoint& point);

}  // namespace ardenix::survey
