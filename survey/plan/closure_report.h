#pragma once

#include <string>

#include "survey/plan/sheet_tool.h"

namespace ardenix::survey {

// How the areas of the erven numbered last stand to the outside figure traced last, as far as either is known in the
// view that is worked in: what the figure has more are streets and open spaces.
std::string closureReport(const SheetTool& tool, const JobSettings& job);

}  // namespace ardenix::survey
