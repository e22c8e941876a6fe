#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "host/drawing/hatch.h"

namespace brevan {

// A pattern that ships, laid on paper after the practice of ISO 128-50 and of building drawings.
struct HatchPattern {
  std::string_view name;          // as macros, scripts and files have it
  std::string_view title;         // as menus have it
  std::vector<HatchLines> lines;  // none: filled whole
};

std::span<const HatchPattern> hatchPatterns();
// Null where none is called so.
const HatchPattern* hatchPattern(std::string_view name);
// Those of the hatch itself, else of its pattern; none for a solid one and for a name that nobody knows.
std::span<const HatchLines> linesOf(const Hatch& hatch);

}  // namespace brevan
