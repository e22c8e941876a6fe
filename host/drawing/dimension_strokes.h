#pragma once

#include <vector>

#include "host/drawing/parameters.h"
#include "host/drawing/primitive.h"

namespace brevan {

// Text height and arrow head of dimensions, tenths of a millimetre on paper.
inline constexpr double kDimensionTextHeight = 35.0;
inline constexpr double kDimensionArrowLength = 25.0;
inline constexpr double kDimensionArrowWidth = 10.0;
// The gap between a measured point and its extension line, the length by which that runs on past the
// dimension line, and the gap between dimension line and text; millimetres on paper.
inline constexpr double kExtensionGap = 1.0;
inline constexpr double kExtensionOvershoot = 2.0;
inline constexpr double kDimensionTextGap = 0.5;

// The ends of the dimension line, beside the first and the second measured point.
struct DimensionLine {
  Point first;
  Point second;
};
DimensionLine dimensionLine(const Dimension& dimension);

// Where the text stands: the middle of its lower edge, drawing units.
Point dimensionTextPoint(const Dimension& dimension, const Parameters& parameters);

// What a dimension looks like: extension lines, dimension line with two arrow heads (from outside where
// they do not fit between), text, as plain geometry in drawing units.
std::vector<Geometry> dimensionStrokes(const Dimension& dimension, const Parameters& parameters);

}  // namespace brevan
