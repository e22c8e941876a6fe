#pragma once

#include <string_view>

#include "arch/elevation_fold.h"
#include "frame/drafting/line_style.h"
#include "frame/host/cad_window.h"

namespace ardenix::arch {

// The outermost corners of an elevation's walls, on the face.
struct ElevationEnds {
  Point left;
  Point right;
};

// Writes the elevation's name and scale under its ground line: "SOUTH ELEVATION 1:100".
void writeElevationName(CCadWindow& view, const ElevationFold& fold, const ElevationEnds& ends, double ground,
                        std::string_view side, int pen);

// A height of the building, and how far from the face it is drawn.
struct ElevationLevel {
  double height = 0.0;
  double distance = 0.0;
};

// Marks a height at the right edge, in millimetres: "+2 600"; `beyond` leads past what else stands out there.
void markLevel(CCadWindow& view, const ElevationFold& fold, Point rightEnd, const ElevationLevel& level, double beyond,
               const LineStyle& style);

}  // namespace ardenix::arch
