#pragma once

#include "frame/host/cad_window.h"
#include "mech/fastener.h"

namespace ardenix {

// Draws the views of one kind of fastener. Each answers whether a part was drawn; false when the user ended
// at a prompt.
class FastenerDrawer {
 public:
  FastenerDrawer() = default;
  FastenerDrawer(const FastenerDrawer&) = delete;
  FastenerDrawer& operator=(const FastenerDrawer&) = delete;
  virtual ~FastenerDrawer() = default;
  virtual bool drawSideView() = 0;
  virtual bool drawPlanView() = 0;
};

// Draws part after part until the user ends at a prompt or presses Escape.
void drawFasteners(CCadWindow& view, FastenerDrawer& drawer, ViewMode mode);

}  // namespace ardenix
