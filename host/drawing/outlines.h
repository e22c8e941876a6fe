#pragma once

#include <string>
#include <vector>

#include "host/drawing/drawing.h"
#include "host/geometry/loop.h"

namespace brevan {

// What a machine can cut along: closed loops, counter-clockwise, each a chain whose every end meets exactly one other;
// a full circle is a loop of itself.
struct Outlines {
  std::vector<Loop> loops;
  std::vector<std::string> faults;  // what does not close, and where
};

// Ends nearer than this meet.
inline constexpr double kOutlineJoin = 1e-6;

// Outlines made of lines and arcs; what lies on another of them counts once.
Outlines outlinesOf(const std::vector<Curve>& curves);

// The outlines of a part. Lines of a type that has dots are its axes and no outline.
Outlines outlinesOf(const Drawing& drawing, GroupId part);

// Goes round the figure to which the nearest line or arc belongs, whatever lies inside, in lines without breaks. Empty
// where that closes nowhere.
Loop outerLoopAt(Drawing& drawing, Point p);

// Pieces of one line that follow each other, as one.
Loop withoutBreaks(const Loop& loop);

}  // namespace brevan
