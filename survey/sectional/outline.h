#pragma once

#include <span>
#include <vector>

#include "survey/sectional/section.h"
#include "survey/sheet/extents.h"

// Outlines as closed polygons, the first point again at the end.
namespace ardenix::survey {

using Outlines = std::vector<const SectionOutline*>;

Extents extentsOf(const std::vector<Point>& points);

// The mean of its distinct corners; beside it in the middle of the widest part where that lies outside.
Point placeOfLabel(const std::vector<Point>& closed);

// What is wrong between two outlines that should lie apart or share their boundary.
struct OutlineFault {
  long long one = 0;  // ids of their sections
  long long other = 0;
  bool overlap = false;
  double gap = 0.0;  // drawing units, where they do not overlap
};

// Outlines that run into each other by more than a centimetre, and those whose corners miss each other's boundary by
// more than that and by less than a wall's thickness.
std::vector<OutlineFault> faultsBetween(const Outlines& outlines, double millimetresAUnit);

}  // namespace ardenix::survey
