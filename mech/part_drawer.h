#pragma once

#include <string>
#include <string_view>

namespace ardenix::mech {

// Draws a part of a library as its record gives it.
class PartDrawer {
 public:
  PartDrawer() = default;
  PartDrawer(const PartDrawer&) = delete;
  PartDrawer& operator=(const PartDrawer&) = delete;
  virtual ~PartDrawer() = default;

  virtual void takeRecord(std::string_view text) = 0;
  // What was taken, as a library would hold it.
  [[nodiscard]] virtual std::string recordText(std::string_view name) const = 0;
  // The part where nobody is asked: a picture of it.
  virtual void sketch() = 0;
};

}  // namespace ardenix::mech
