#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/drawing/hatch.h"

// Outlines and lines of a hatch as texts of numbers, for files: one a row, rows parted by ";".
namespace brevan {

// "x y bulge" of each corner.
std::string textOf(const std::vector<HatchLoop>& loops);
// "angle start start step step", then the dashes.
std::string textOf(const std::vector<HatchLines>& lines);
// Nothing for a text that is none.
std::optional<std::vector<HatchLoop>> hatchLoopsOf(std::string_view text);
std::optional<std::vector<HatchLines>> hatchLinesOf(std::string_view text);

}  // namespace brevan
