#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/primitive.h"

namespace brevan {

// Hidden layers are never picked, cut, traced or selected; locked ones are seen and never changed.
struct Layer {
  std::string name;
  bool visible = true;
  bool locked = false;
  int pen = 1;  // of primitives whose pen is by layer
  // What other programs give to what they draw on the layer; primitives here have their own.
  int linetype = 1;
  double width = 0.0;  // tenths of a millimetre
  friend bool operator==(const Layer&, const Layer&) = default;
};

// A named part of the drawing under a parent (its category). "_" is an unnamed group. Without members a
// group counts as gone.
struct Group {
  GroupId id = 0;
  std::string_view parent;  // kept by the drawing: groups of one parent share its characters
  std::string name;
  std::vector<PrimitiveId> members;  // unordered
};

}  // namespace brevan
