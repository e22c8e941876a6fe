#pragma once

#include <string>
#include <vector>

#include "frame/drafting/point.h"
#include "survey/sheet/extents.h"

namespace ardenix::survey {

// Survey drawings: x is the first coordinate (called Y on a plan), y the second (called X), lengths drawing units.

// Length and direction of a side; the direction is radians from the second axis towards the first, 0 to below 2 pi.
struct Join {
  double distance = 0.0;
  double direction = 0.0;
};

// Points that differ by no more than 1e-12 in either coordinate are 0 apart in direction 0.
Join joinOf(Point from, Point to);

// A side of a figure, from one beacon to the next.
struct Side {
  std::string fromLabel;
  std::string toLabel;
  Point from;
  Point to;
  Join join;

  Side(std::string fromLabel, Point from, std::string toLabel, Point to);
  [[nodiscard]] std::string name() const { return fromLabel + toLabel; }
};

// The sides of a closed figure in the order in which its corners were given.
using Figure = std::vector<Side>;

// What holds all corners. The figure has a side at least.
Extents extentsOf(const Figure& figure);

// By the sum of cross products of the corners, in square drawing units, whichever way round the sides run.
double areaOf(const Figure& figure);

// A blank, and each corner's label followed by a blank: " A B C D ".
std::string nameOf(const Figure& figure);

}  // namespace ardenix::survey
