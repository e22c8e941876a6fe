#include "survey/plan/erf_sides.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/scratch_layer.h"
#include "frame/drafting/sheet_axes.h"
#include "survey/figure.h"

namespace ardenix::survey {

namespace {

constexpr double kPi = std::numbers::pi;

std::vector<ErfSide> linesOn(CCadWindow& view, int layer) {
  std::vector<ErfSide> lines;
  const int scan = view.gsGetListHandle(kLinePrimitive, layer, 0, 0.0, 0.0, 0.0, 0.0, 0, 0);
  while (view.gsGetNextPrim(scan) > 0) {
    ErfSide line;
    view.gsGetLine(line.from.x, line.from.y, line.to.x, line.to.y);
    lines.push_back(line);
  }
  view.gsFreeListHandle(scan);
  return lines;
}

double directionOf(const ErfSide& side) { return joinOf(side.from, side.to).direction; }

// From one direction to another, -pi to pi.
double turnBetween(double from, double to) { return std::remainder(to - from, 2.0 * kPi); }

bool continuesStraight(const ErfSide& side, const ErfSide& next) {
  constexpr double kStraight = 2.424e-05;  // 5 seconds
  return nearlyEqual(side.to, next.from) && std::fabs(turnBetween(directionOf(side), directionOf(next))) < kStraight;
}

bool liesOnArc(CCadWindow& view, Point at, double tolerance) {
  if (view.gsNearestPrim(kArcPrimitive, at.x, at.y) != kArcPrimitive) { return false; }
  Point start;
  Point centre;
  Point end;
  int direction = 0;
  view.gsGetArc(start.x, start.y, centre.x, centre.y, end.x, end.y, direction);
  return std::fabs(length(at - centre) - length(start - centre)) <= tolerance;
}

// Chords of one arc are alike, and leave it by a hair only.
bool continuesArc(CCadWindow& view, const ErfSide& side, const ErfSide& next) {
  constexpr double kChordError = 0.05;  // millimetres on paper, as the host draws arcs of boundaries
  constexpr double kAlike = 1e-6;
  const double chord = length(side.to - side.from);
  if (!nearlyEqual(side.to, next.from) || std::fabs(length(next.to - next.from) - chord) > chord * kAlike) {
    return false;
  }
  const double tolerance = kChordError * paperMillimetre(view) * (1.0 + kAlike);
  const double rise = chord / 2.0 * std::tan(std::fabs(turnBetween(directionOf(side), directionOf(next))) / 4.0);
  return rise <= tolerance && liesOnArc(view, side.to, tolerance);
}

// Sides that go on in the next one are made one with it, across the start of the loop as well. None where every side
// goes on: a loop without a corner.
template <class GoesOn>
std::vector<ErfSide> merged(std::span<const ErfSide> loop, GoesOn&& goesOn) {
  const auto next = [&](size_t side) { return (side + 1) % loop.size(); };
  size_t last = 0;
  while (last < loop.size() && goesOn(loop[last], loop[next(last)])) { ++last; }
  std::vector<ErfSide> sides;
  if (last == loop.size()) { return sides; }
  bool begins = true;
  for (size_t count = 0, at = next(last); count < loop.size(); ++count, at = next(at)) {
    if (begins) { sides.push_back(loop[at]); }
    sides.back().to = loop[at].to;
    begins = !goesOn(loop[at], loop[next(at)]);
  }
  return sides;
}

}  // namespace

std::vector<ErfSide> traceErf(CCadWindow& view, Point inside) {
  const int layer = view.gsGetCurrentLayer();
  const int scan = view.gsGetListHandle(kAnyPrimitive, layer, 0, 0.0, 0.0, 0.0, 0.0, 0, 0);
  const bool holds = view.gsGetNextPrim(scan) != 0;
  view.gsFreeListHandle(scan);
  if (holds) {
    view.gsExecuteMacro(macroText::selectLayer(scratchNames::kSurveyDimensions));
    view.gsExecuteMacro(macroText::kDeleteSelection);
  }
  if (view.gsExecuteMacro(macroText::drawBoundary(inside)) == 0) { return {}; }
  return linesOn(view, layer);
}

std::vector<ErfSide> withoutChords(CCadWindow& view, std::span<const ErfSide> boundary) {
  return merged(boundary, [&](const ErfSide& side, const ErfSide& next) { return continuesArc(view, side, next); });
}

std::vector<ErfSide> wholeSides(CCadWindow& view, std::span<const ErfSide> boundary) {
  return merged(boundary, [&](const ErfSide& side, const ErfSide& next) {
    return continuesStraight(side, next) || continuesArc(view, side, next);
  });
}

// ---- Sides met --------------------------------------------------------------------------------------------------

namespace {

constexpr double kMiddle = 0.01;
constexpr double kLength = 0.01;
constexpr double kDirection = 0.001;

long long cellOf(double across, double up) {
  constexpr long long kRowLength = 3'000'000'019;  // cells of far rows may share a list, which is looked through anyway
  return static_cast<long long>(across) * kRowLength + static_cast<long long>(up);
}

}  // namespace

SidesMet::Met* SidesMet::alike(const Met& side) {
  const Point anchor = middle(side.from, side.to);
  const auto isAlike = [&](size_t index) {
    const Met& met = met_[index];
    return distance(middle(met.from, met.to), anchor) <= kMiddle &&
           std::fabs(distance(met.from, met.to) - distance(side.from, side.to)) < kLength &&
           std::fabs(std::remainder(met.direction - side.direction, kPi)) <= kDirection;
  };
  for (int column = -1; column <= 1; ++column) {
    for (int row = -1; row <= 1; ++row) {
      const auto cell =
          byMiddle_.find(cellOf(std::floor(anchor.x / kMiddle) + column, std::floor(anchor.y / kMiddle) + row));
      if (cell == byMiddle_.end()) { continue; }
      const auto found = std::ranges::find_if(cell->second, isAlike);
      if (found != cell->second.end()) { return &met_[*found]; }
    }
  }
  return nullptr;
}

void SidesMet::add(const ErfSide& side) {
  const Met met{side, directionOf(side)};
  if (Met* const before = alike(met)) {
    // Neighbours walk it opposite ways; who meets it the same way is the same erf, met again.
    before->shared |= std::fabs(turnBetween(before->direction, met.direction)) > kPi / 2.0;
    return;
  }
  const Point anchor = middle(side.from, side.to);
  byMiddle_[cellOf(std::floor(anchor.x / kMiddle), std::floor(anchor.y / kMiddle))].push_back(met_.size());
  met_.push_back(met);
}

}  // namespace ardenix::survey
