#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <optional>
#include <span>
#include <vector>

#include "host/drawing/primitive.h"

namespace brevan {

// Which groups of a drawing came or went, got another name, their first member or lost their last one. Any number of
// readers follow it, each from the position that it has read up to.
class GroupLog {
 public:
  [[nodiscard]] uint64_t end() const { return start_ + changed_.size(); }
  // Those since a position; numbers may come several times, and may be gone. None: too many, look at all groups.
  [[nodiscard]] std::optional<std::span<const GroupId>> since(uint64_t position) const {
    if (position < start_ || position > end()) { return std::nullopt; }
    return std::span(changed_).subspan(static_cast<size_t>(position - start_));
  }
  // groups: how many there are. Keeping more than that would cost more than looking at all of them.
  void note(GroupId group, size_t groups) noexcept {
    constexpr size_t kAlways = 1024;
    if (changed_.size() < kAlways + 2 * groups) {
      try {
        return changed_.push_back(group);
      } catch (const std::bad_alloc&) {}  // then readers look at all groups
    }
    start_ = end() + 1;
    changed_.clear();
  }

 private:
  uint64_t start_ = 0;  // the position of the first one kept
  std::vector<GroupId> changed_;
};

}  // namespace brevan
