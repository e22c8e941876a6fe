#pragma once

#include <memory>
#include <utility>

#include "frame/toolset.h"

namespace ardenix {

// The three lifetimes of a toolset. `make(view)` builds one and may throw; the slot is then empty.

// Kept from one command to the next in the same view, replaced when a command runs in another.
template <class Tools, class Make>
Tools& toolsetOfView(std::unique_ptr<Tools>& slot, CCadWindow* view, Make&& make) {
  if (slot && !slot->worksIn(view)) { slot.reset(); }
  if (!slot) { slot = std::forward<Make>(make)(view); }
  return *slot;
}

// Lives for one command, however the command ends.
template <class Tools, class Make, class Operation>
void withToolsetOfCommand(std::unique_ptr<Tools>& slot, CCadWindow* view, Make&& make, Operation&& operation) {
  if (!slot) { slot = std::forward<Make>(make)(view); }
  struct Release {
    std::unique_ptr<Tools>& slot;
    ~Release() { slot.reset(); }
  } release{slot};
  std::forward<Operation>(operation)(*slot);
}

// Made at first use, kept until unload, pointed at the view of each command.
template <class Tools, class Make>
Tools& toolsetUntilUnload(std::unique_ptr<Tools>& slot, CCadWindow* view, Make&& make) {
  if (!slot) { slot = std::forward<Make>(make)(view); }
  slot->setView(view);
  return *slot;
}

}  // namespace ardenix
