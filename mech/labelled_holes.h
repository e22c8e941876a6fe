#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::mech {

// A full circle of the drawing and the text that stands nearest to its centre.
struct LabelledHole {
  std::string label;
  Point centre;
  double diameter = 0.0;
};

// Of circles about one centre the smallest counts; those without a text within 10 mm on paper are left out, and so is
// what lies on hidden layers. In the order of their labels, A2 before A10.
std::vector<LabelledHole> labelledHoles(CCadWindow& view);

// Whether a label comes before another: numbers in them count by their value.
bool comesBefore(std::string_view label, std::string_view other);

}  // namespace ardenix::mech
