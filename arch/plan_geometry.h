#pragma once

#include "frame/drafting/point.h"

namespace ardenix::arch {

// Equal but for rounding: each coordinate within |second| x 1e-12 + 1e-12.
bool samePoint(double x1, double y1, double x2, double y2);

// The point of the endless line through a and b that lies nearest to p; a where the two are equal.
Point footOfPerpendicular(Point p, Point a, Point b);

// A direction in whole degrees to the quarter it belongs to, the bounds 5 degrees early: 85 to 174 give 90,
// 175 to 264 give 180, and so on.
int snapQuadrant(double degrees);

// The same direction as 0 to 359 degrees.
int normaliseDegrees(int degrees);

// An angle in radians turned on by degrees; below a full turn.
double addDegrees(double radians, double delta);

}  // namespace ardenix::arch
