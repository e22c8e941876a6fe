#pragma once

#include <string>
#include <string_view>

#include "frame/host/cad_window.h"

namespace ardenix {

// The longest name of a group.
inline constexpr size_t kGroupNameLimit = 15;

// Finds the next free number of the groups named prefix + number under a parent.
class GroupCounter {
 public:
  // Both names are cleaned as group names are.
  GroupCounter(std::string_view parent, std::string_view prefix);

  // Takes note of a group of the drawing. Called for every group, so it allocates nothing.
  void see(std::string_view parent, std::string_view name);

  [[nodiscard]] const std::string& parent() const { return parent_; }
  // Prefix and the largest number seen + 1, cut to kGroupNameLimit.
  [[nodiscard]] std::string nextName() const;

 private:
  std::string parent_;
  std::string prefix_;
  long long largest_ = 0;
};

// Opens a new group, named prefix + next free number under the parent, for what is drawn next. Clears the
// workspace. Returns the group's name.
std::string startNumberedGroup(CCadWindow& view, std::string_view parent, std::string_view prefix);

}  // namespace ardenix
