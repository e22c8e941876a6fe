#include "host/geometry/parallel_path.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace brevan {

namespace {

constexpr double kRoundingShare = 1e-9;
constexpr double kLongestMitre = 20.0;  // offsets from the corner

Point rightOf(Point direction) { return {direction.y, -direction.x}; }

std::optional<Curve> movedRight(const Curve& curve, double offset) {
  if (const auto* segment = std::get_if<Segment>(&curve)) {
    const Point shift = rightOf(directionAt(curve, 0.0)) * offset;
    return Segment{segment->a + shift, segment->b + shift};
  }
  ArcShape arc = std::get<ArcShape>(curve);
  const double radius = arcRadius(arc);
  const double moved = arc.clockwise ? radius - offset : radius + offset;
  if (moved <= kRoundingShare * radius) { return std::nullopt; }
  const bool full = isFullCircle(arc);
  const Point end = endOf(curve);
  arc.start = arc.centre + (arc.start - arc.centre) * (moved / radius);
  arc.end = full ? arc.start : arc.centre + (end - arc.centre) * (moved / radius);
  return arc;
}

void setStart(Curve& curve, Point start) {
  if (auto* segment = std::get_if<Segment>(&curve)) {
    segment->a = start;
  } else {
    std::get<ArcShape>(curve).start = start;
  }
}

void setEnd(Curve& curve, Point end) {
  if (auto* segment = std::get_if<Segment>(&curve)) {
    segment->b = end;
  } else {
    std::get<ArcShape>(curve).end = end;
  }
}

// A mitre carries both sides on to where they cross.
std::optional<Point> mitrePoint(const Curve& before, const Curve& after, Point corner, double offset) {
  std::optional<Point> best;
  double bestDistance = kLongestMitre * std::abs(offset);
  const double scale = 1.0 + lengthOf(before) + lengthOf(after);
  for (const Point at : crossingsOfEndless(before, after, kRoundingShare * scale)) {
    const bool onwards = parameterOf(before, at) >= 1.0 - kRoundingShare && parameterOf(after, at) <= kRoundingShare;
    if (!onwards || distance(at, corner) > bestDistance) { continue; }
    best = at;
    bestDistance = distance(at, corner);
  }
  return best;
}

// Sides moved apart at an outer corner are joined; at an inner one they cross and are cut later.
void joinCorner(std::vector<Curve>& raw, Curve& after, const Curve& pathBefore, Point corner, double offset,
                bool rounded) {
  const Curve& before = raw.back();
  const double turn = cross(directionAt(pathBefore, 1.0), directionAt(after, 0.0));
  const bool reverses = dot(directionAt(pathBefore, 1.0), directionAt(after, 0.0)) < 0.0;
  const bool straight = std::abs(turn) <= kRoundingShare && !reverses;
  if (straight || turn * offset < 0.0) { return; }
  const auto mitre = rounded ? std::nullopt : mitrePoint(before, after, corner, offset);
  if (mitre) {
    setEnd(raw.back(), *mitre);
    setStart(after, *mitre);
    return;
  }
  raw.emplace_back(ArcShape{endOf(before), corner, startOf(after), offset < 0.0});
}

std::vector<Curve> rawParallel(const std::vector<Curve>& path, bool closed, double offset, bool rounded) {
  std::vector<Curve> raw;
  const Curve* before = nullptr;  // the path's curve that raw ends with
  for (const Curve& curve : path) {
    auto moved = movedRight(curve, offset);
    if (moved && before != nullptr) { joinCorner(raw, *moved, *before, startOf(curve), offset, rounded); }
    before = moved ? &curve : nullptr;
    if (moved) { raw.push_back(*moved); }
  }
  if (closed && before != nullptr && path.size() > 1 && raw.size() > 1) {
    joinCorner(raw, raw.front(), *before, startOf(path.front()), offset, rounded);
  }
  return raw;
}

// The end's line leans from square by what the cotangent says.
void cutEnds(std::vector<Curve>& raw, double offset, const EndAngles& angles) {
  const auto lean = [offset](double angle) { return offset * std::cos(angle) / std::sin(angle); };
  if (auto* first = std::get_if<Segment>(&raw.front())) {
    first->a = first->a + directionAt(*first, 0.0) * lean(angles.start);
  }
  if (auto* last = std::get_if<Segment>(&raw.back())) {
    last->b = last->b + directionAt(*last, 0.0) * lean(angles.end);
  }
}

double distanceToPath(const std::vector<Curve>& path, Point p) {
  double least = std::numeric_limits<double>::infinity();
  for (const Curve& curve : path) { least = std::min(least, distance(nearestOn(curve, p), p)); }
  return least;
}

// All that can bound what lies nearer to the path than the offset: both sides of every curve, and a circle
// about every corner and end.
std::vector<Curve> reachOf(const std::vector<Curve>& path, double offset) {
  std::vector<Curve> reach;
  for (const Curve& curve : path) {
    for (const double side : {offset, -offset}) {
      if (const auto moved = movedRight(curve, side)) { reach.push_back(*moved); }
    }
    for (const Point corner : {startOf(curve), endOf(curve)}) {
      const Point start = corner + Point{std::abs(offset), 0.0};
      reach.emplace_back(ArcShape{start, corner, start});
    }
  }
  return reach;
}

std::vector<double> cutsOf(const Curve& curve, const std::vector<Curve>& reach, double tolerance) {
  std::vector<double> cuts = {0.0, 1.0};
  const Box box = boundsOf(curve).grownBy(tolerance);
  for (const Curve& other : reach) {
    if (!box.meets(boundsOf(other))) { continue; }
    for (const Crossing& crossing : crossings(curve, other, tolerance)) { cuts.push_back(crossing.first); }
  }
  std::sort(cuts.begin(), cuts.end());
  return cuts;
}

// The runs of a raw curve between cuts that keep their distance.
void addKept(const Curve& curve, const std::vector<double>& cuts, const std::vector<Curve>& path, double least,
             double tolerance, std::vector<Curve>& kept) {
  const double size = lengthOf(curve);
  bool running = false;
  double from = 0.0;
  double to = 0.0;
  for (size_t cut = 0; cut + 1 < cuts.size(); ++cut) {
    if ((cuts[cut + 1] - cuts[cut]) * size <= tolerance) { continue; }
    const bool keeps = distanceToPath(path, pointAt(curve, (cuts[cut] + cuts[cut + 1]) / 2.0)) >= least;
    if (running && !keeps) { kept.push_back(pieceOf(curve, from, to)); }
    if (keeps && !running) { from = cuts[cut]; }
    if (keeps) { to = cuts[cut + 1]; }
    running = keeps;
  }
  if (running) { kept.push_back(pieceOf(curve, from, to)); }
}

}  // namespace

std::vector<Curve> parallelOf(const std::vector<Curve>& path, bool closed, double offset, bool rounded,
                              const EndAngles& angles) {
  if (offset == 0.0) { return path; }
  std::vector<Curve> raw = rawParallel(path, closed, offset, rounded);
  if (raw.empty()) { return raw; }
  if (!closed) { cutEnds(raw, offset, angles); }
  const double tolerance = kRoundingShare * (1.0 + std::abs(offset));
  constexpr double kNearly = 1.0 - 1e-7;
  std::vector<Curve> kept;
  const std::vector<Curve> reach = reachOf(path, offset);
  for (const Curve& curve : raw) {
    addKept(curve, cutsOf(curve, reach, tolerance), path, std::abs(offset) * kNearly - tolerance, tolerance, kept);
  }
  return kept;
}

}  // namespace brevan
