#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/geometry/loop.h"
#include "host/geometry/transform.h"

namespace brevan {

// A corner of an outline and the side that leads on from it. The bulge is the tangent of a quarter of the angle through
// which that side turns, above 0 to the left; 0 for a straight one.
struct HatchCorner {
  Point at;
  double bulge = 0.0;
  friend bool operator==(const HatchCorner&, const HatchCorner&) = default;
};

// An outline, closed by itself: of two corners where a side is bent, else of three or more.
using HatchLoop = std::vector<HatchCorner>;

// Parallel lines of a pattern. Lengths are millimetres on paper at the pattern's scale 1.
struct HatchLines {
  double angle = 0.0;          // degrees counter-clockwise
  Point start;                 // on the first line, where its dashes begin, from the pattern's origin
  Point step;                  // to the next line: along and square to the lines
  std::vector<double> dashes;  // above 0 a dash, below a gap, 0 a dot; over and over; empty: a continuous line
  friend bool operator==(const HatchLines&, const HatchLines&) = default;
};

// Closed outlines filled with a pattern: what lies within an odd number of them.
struct Hatch {
  std::string pattern;            // of hatch_patterns.h, or another program's name for the lines below
  double scale = 1.0;             // of the pattern's lengths, above 0
  double angle = 0.0;             // degrees by which the pattern is turned, counter-clockwise on paper
  Point origin;                   // a place that the pattern's origin falls upon
  std::vector<HatchLines> lines;  // of a pattern that is not ours; empty for ours
  std::vector<HatchLoop> loops;
  friend bool operator==(const Hatch&, const Hatch&) = default;
};

inline constexpr std::string_view kSolidPattern = "SOLID";

HatchLoop hatchLoop(const Loop& loop);
Loop loopOf(const HatchLoop& corners);
// Its outlines as chains of straight sides that stray from them by the tolerance at most.
Hatch straightened(Hatch hatch, double tolerance);
bool hasBulges(const Hatch& hatch);
Box hatchBounds(const Hatch& hatch);
// Within an odd number of its outlines.
bool encloses(const Hatch& hatch, Point p);
// A mirror leaves the pattern as it was, since a part is hatched one way; a turn turns it.
Hatch transformed(Hatch hatch, const Transform& transform);

}  // namespace brevan
