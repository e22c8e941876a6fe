#pragma once

#include <string>
#include <vector>

#include "host/drawing/primitive.h"

namespace brevan {

// What a symbol is made of, in millimetres from its origin.
struct SymbolDefinition {
  std::string name;
  std::vector<Primitive> parts;
  bool paperSize = true;  // millimetres on paper, placed x drawing scale; else real size, converted by unit
  bool upright = false;   // does not turn with the axes of a survey sheet
  std::string file = {};  // the base name of the symbol file that it came from
  friend bool operator==(const SymbolDefinition&, const SymbolDefinition&) = default;
};

}  // namespace brevan
