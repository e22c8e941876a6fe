#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "arch/plan_pick.h"
#include "arch/roof_skeleton.h"

namespace ardenix::arch {

// The visible lines on a layer, in the order in which they were drawn; none where there is no such layer.
std::vector<PlanLine> linesOnLayer(CCadWindow& view, std::string_view layer);

// The closed figure of lines to which one belongs, all of its sides eaves, counter-clockwise. Nothing where the lines
// that start there do not come back, or branch.
std::optional<RoofOutline> outlineThrough(const std::vector<PlanLine>& lines, const PlanLine& side);

// The side of an outline that a line is; nothing for another line.
std::optional<size_t> sideOf(const RoofOutline& outline, const PlanLine& line);

// Makes gables of the sides between whose ends a seam comes to its end.
void takeGablesFrom(RoofOutline& outline, const std::vector<PlanLine>& seams);

}  // namespace ardenix::arch
