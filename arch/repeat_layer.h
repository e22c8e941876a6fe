#pragma once

#include "frame/drafting/point.h"
#include "frame/drafting/scratch_layer.h"
#include "frame/host/cad_window.h"

namespace ardenix::arch {

// The layer on which the parts of a stair that come many times are drawn once, above the scratch layer of the whole,
// which is current before and after.
class RepeatLayer {
 public:
  explicit RepeatLayer(CCadWindow& view) : view_(view), layer_(view, scratchNames::kArchitecturalRepeated) {}

  // Adds copies of all that lies on the layer, each displaced by from -> to.
  void repeat(int copies, Point from, Point to);
  // The same where there are copies to add, and moves all to the scratch layer of the whole.
  void multiply(int copies, Point from, Point to);
  void settle();

 private:
  void select();

  CCadWindow& view_;
  ScratchLayer layer_;
};

}  // namespace ardenix::arch
