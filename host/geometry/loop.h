#pragma once

#include <vector>

#include "host/geometry/curve.h"

namespace brevan {

// A closed chain of curves, each starting where the one before ends; the last ends where the first starts.
using Loop = std::vector<Curve>;

// Above 0 counter-clockwise.
double signedArea(const Loop& loop);
double perimeterOf(const Loop& loop);
bool encloses(const Loop& loop, Point p);
Loop reversed(const Loop& loop);
// A point well inside, where a text may stand: the centre of area where that is inside, else the middle of
// the longest level chord through its height.
Point pointInside(const Loop& loop);
std::vector<Point> flattened(const Loop& loop, double tolerance);

}  // namespace brevan
