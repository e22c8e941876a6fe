#include "mech/part_shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

#include "frame/drafting/point.h"

namespace ardenix::mech {

namespace {

// Beside the steps of tables, so that no measure of one lies where rounding would tell equal strokes apart.
long long inSteps(double measure) {
  constexpr double kStep = 1e-4;
  constexpr double kBeside = 0.37;
  return std::llround(measure / kStep + kBeside);
}

// How far an arc runs, radians.
double sweepOf(Point start, Point centre, Point end, int sense) {
  constexpr double kCircle = 2.0 * std::numbers::pi;
  if (nearlyEqual(start, end)) { return kCircle; }
  const double turn = angleOf(end - centre) - angleOf(start - centre);
  const double sweep = sense == 0 ? turn : -turn;
  return sweep > 0.0 ? sweep : sweep + kCircle;
}

}  // namespace

bool PartShape::add(CCadWindow& view, const LineStyle& axisStyle) {
  PrimHeader header;
  view.gsGetPrimHeader(header);
  const bool axis = header.pen == axisStyle.pen && header.linetype == axisStyle.linetype;
  Point a;
  Point b;
  Point c;
  int sense = 0;
  double size = 0.0;
  double sweep = 0.0;
  if (header.type == kLinePrimitive) {
    view.gsGetLine(a.x, a.y, b.x, b.y);
    size = distance(a, b);
  } else if (header.type == kArcPrimitive) {
    view.gsGetArc(a.x, a.y, b.x, b.y, c.x, c.y, sense);
    size = distance(b, c);
    sweep = sweepOf(a, b, c, sense);
  } else {
    return false;
  }
  ++counts_[{header.type, axis ? 1 : 0, inSteps(size), inSteps(sweep)}];
  return !axis;
}

int PartShape::copies() const {
  const int common = std::accumulate(counts_.begin(), counts_.end(), 0,
                                     [](int so, const auto& stroke) { return std::gcd(so, stroke.second); });
  return std::max(common, 1);
}

PartShape PartShape::oneOf(int copies) const {
  PartShape one = *this;
  for (auto& stroke : one.counts_) { stroke.second /= copies; }
  return one;
}

bool PartShape::isPartOf(const PartShape& whole) const {
  return std::ranges::all_of(counts_, [&whole](const auto& stroke) {
    const auto there = whole.counts_.find(stroke.first);
    return stroke.first[1] != 0 || (there != whole.counts_.end() && stroke.second <= there->second);
  });
}

int PartShape::strokes() const {
  return std::accumulate(counts_.begin(), counts_.end(), 0,
                         [](int so, const auto& stroke) { return so + stroke.second; });
}

}  // namespace ardenix::mech
