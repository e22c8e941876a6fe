#pragma once

#include <functional>
#include <vector>

#include "host/drawing/hatch.h"
#include "host/drawing/hatch_patterns.h"

namespace brevan {

// A hatch as it is drawn. Its coordinates are millimetres on paper.
class HatchFill {
 public:
  // The scale multiplies the pattern's lengths besides the hatch's own.
  HatchFill(const Hatch& hatch, double paperScale);

  // All outlines as one chain, which runs from each to the first corner and back: within it lies what an odd number of
  // them holds, whichever way a reader counts.
  [[nodiscard]] std::vector<Point> outline() const;

  // The pieces of these lines that lie within, each a dash of its own; a dot has no length. Where a pattern is too fine
  // for the area (beyond kMostRows lines, or so many dashes a line) every second, third or n-th line is drawn,
  // continuous.
  using Draw = std::function<void(Point a, Point b)>;
  void forEachStroke(const HatchLines& lines, const Draw& draw) const;

  static constexpr double kMostRows = 20'000.0;

 private:
  std::vector<std::vector<Point>> rings_;
  Point origin_;
  double angle_;
  double scale_;
};

}  // namespace brevan
