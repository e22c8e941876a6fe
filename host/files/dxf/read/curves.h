#pragma once

#include <vector>

#include "host/drawing/primitive.h"

namespace brevan {

// Curves that drawings have no primitive for become chains of lines. A chain strays from its curve by at most
// kCurveTolerance of the curve's size: an ellipse's longer half axis, the extent of a spline's control points.
inline constexpr double kCurveTolerance = 1e-4;

// A part of an ellipse: centre, end of its longer half axis relative to the centre, the other half axis relative
// to that one turned left, parameters of start and end in radians, counter-clockwise in those axes.
struct EllipseShape {
  Point centre;
  Point major;
  Point minor;
  double from = 0.0;
  double to = 0.0;
};
std::vector<Point> ellipseChain(const EllipseShape& ellipse);

struct SplineShape {
  int degree = 3;
  std::vector<double> knots;    // rising
  std::vector<Point> controls;  // knots - degree - 1 of them
  std::vector<double> weights;  // as many as controls, or none
};
// Empty where the numbers do not make a spline.
std::vector<Point> splineChain(const SplineShape& spline);

}  // namespace brevan
