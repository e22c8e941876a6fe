#pragma once

#include <string>
#include <string_view>

#include "frame/drafting/scratch_layer.h"
#include "frame/host/cad_window.h"

namespace ardenix::arch {

// Where a part of an architectural drawing goes.
struct PartPlace {
  std::string_view parent;  // of its group
  std::string_view prefix;  // of the group's name, which a number follows
  std::string_view layer;   // made where there is none
};

enum class CurrentLayer { kTarget, kAsBefore };  // when a part is finished

// One part while it is drawn: its group is open and its scratch layer current. A part that is not finished leaves
// nothing behind, and the layer that was current is current again.
class ArchPart {
 public:
  ArchPart(CCadWindow& view, const PartPlace& place);
  ArchPart(const ArchPart&) = delete;
  ArchPart& operator=(const ArchPart&) = delete;
  ~ArchPart();

  [[nodiscard]] const std::string& group() const { return group_; }

  // Makes one group of what lies on the scratch layer and moves it to the part's layer.
  void finish(CurrentLayer afterwards);

 private:
  void leave();
  void abandon();

  CCadWindow& view_;
  std::string layer_;
  int before_;  // the layer that was current
  bool isNew_;  // the part's layer
  std::string group_;
  int target_;
  ScratchLayer scratch_;
  bool finished_ = false;
};

}  // namespace ardenix::arch
