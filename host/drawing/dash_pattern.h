#pragma once

#include <vector>

#include "host/geometry/curve.h"

namespace brevan {

// How a line type's pattern lies along one stroke. Every picture and export of a drawing takes it from here.
struct DashPattern {
  // Millimetres on paper: dash, gap, dash, gap, ..., over again where the stroke is longer; empty for a
  // continuous stroke.
  std::vector<double> lengths;
  double start = 0.0;  // how far into them the stroke begins, millimetres
  double scale = 1.0;  // how much longer they are than the line type's own
  friend bool operator==(const DashPattern&, const DashPattern&) = default;
};

// The pattern along an open stroke of this length in millimetres on paper: symmetrical about the middle, a long
// dash there and part of one at either end, so that centre lines cross in dashes. It is stretched by what that
// takes. A stroke shorter than one run of the pattern is continuous.
DashPattern dashesAlong(int linetype, double length);

// The pattern round a circle: it closes, and dashes lie about its start and its quarters, about its twelfths or
// twenty-fourths where it is long enough. A circle shorter than two runs of the pattern is continuous.
DashPattern dashesAround(int linetype, double circumference);

// Along a curve whose length unit is this many millimetres on paper.
DashPattern dashesOf(int linetype, const Curve& curve, double millimetres = 1.0);

// What to stretch the line type's own pattern by where another program lays it along the curve: it comes to lie
// so for those that centre the pattern as for those that begin with its first dash, which covers the whole of a
// curve that is continuous.
double dashScale(int linetype, const Curve& curve, double millimetres);

}  // namespace brevan
