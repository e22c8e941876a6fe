#pragma once

#include <optional>
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

double distanceToSegment(Point p, Point a, Point b);

// Points that differ by no more than 1e-12 in either coordinate are 0 apart in direction 0.
Join joinOf(Point from, Point to);

// The arc along which a boundary runs from one beacon to the next.
struct SideArc {
  Point centre;
  double sweep =
      0.0;  // radians from the first beacon on, counter-clockwise in coordinates above 0; under a full circle
};

// A side of a figure, from one beacon to the next. Distance and direction are those of the straight join, also where
// the boundary is an arc.
struct Side {
  std::string fromLabel;
  std::string toLabel;
  Point from;
  Point to;
  Join join;
  std::optional<SideArc> arc{};

  Side(std::string fromLabel, Point from, std::string toLabel, Point to);
  [[nodiscard]] std::string name() const { return fromLabel + toLabel; }
  // Points along the boundary from the first beacon up to the one before the second, an arc in steps of this many
  // radians at most.
  [[nodiscard]] std::vector<Point> points(double step) const;
};

// The sides of a closed figure in the order in which its corners were given.
using Figure = std::vector<Side>;

// The fewest corners that enclose an area.
inline constexpr size_t kFewestCorners = 3;

// What holds the boundary, arcs included. The figure has a side at least.
Extents extentsOf(const Figure& figure);

// In coordinates, the first to the right and the second up.
bool runsCounterClockwise(const Figure& figure);

// By the sum of cross products of the corners and the segments between arcs and their chords, in square drawing units,
// whichever way round the sides run.
double areaOf(const Figure& figure);

// The sum of the lengths of all sides, along their arcs.
double perimeterOf(const Figure& figure);

// Two sides of the figure that meet elsewhere than in a corner that they share; nothing where the boundary crosses
// itself nowhere. They live as long as the figure.
std::optional<std::pair<const Side*, const Side*>> crossingSides(const Figure& figure);

// A blank, and each corner's label followed by a blank: " A B C D ".
std::string nameOf(const Figure& figure);

}  // namespace ardenix::survey
