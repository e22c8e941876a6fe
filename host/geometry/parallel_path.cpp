#include "host/geometry/parallel_path.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "host/geometry/loop.h"

namespace brevan {

namespace {

constexpr double kRoundingShare = 1e-9;
constexpr double kNearlyStraight = 0.1;  // radians
constexpr double kLongestMitre = 20.0;   // offsets from the corner

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

// Where p lies to the right of a curve carried on beyond its ends.
double distanceRight(const Curve& curve, Point p) {
  if (const auto* segment = std::get_if<Segment>(&curve)) {
    return dot(p - segment->a, rightOf(directionAt(curve, 0.0)));
  }
  const auto& arc = std::get<ArcShape>(curve);
  const double outwards = distance(p, arc.centre) - arcRadius(arc);
  return arc.clockwise ? -outwards : outwards;
}

// A mitred corner: the sharp corner of the parallel claims all before it, as the curves' own parallels do.
struct MitredCorner {
  Curve before;  // of the path
  Curve after;
  Point corner;
  double reach = 0.0;  // from the corner to the mitre's point

  // Nearer to one of the two curves, carried on, than the offset; by more than the tolerance.
  [[nodiscard]] bool claims(Point p, double offset, double tolerance) const {
    const Point away = p - corner;
    if (dot(away, directionAt(before, 1.0)) < -tolerance || dot(away, directionAt(after, 0.0)) > tolerance) {
      return false;
    }
    const double side = offset < 0.0 ? -1.0 : 1.0;
    const double least = std::abs(offset) - tolerance;
    return length(away) < reach - tolerance && side * distanceRight(before, p) < least &&
           side * distanceRight(after, p) < least;
  }
};

// The path moved aside, joined at its outer corners and left crossing itself at the inner ones.
struct RawParallel {
  std::vector<Curve> curves;
  std::vector<MitredCorner> mitres;
  double offset = 0.0;
  bool rounded = false;

  // Sides moved apart at an outer corner are joined; at an inner one they cross and are cut later.
  void joinCorner(const Curve& pathBefore, const Curve& pathAfter, Curve& after) {
    const Curve& before = curves.back();
    const Point corner = startOf(pathAfter);
    const double turn = cross(directionAt(pathBefore, 1.0), directionAt(pathAfter, 0.0));
    const bool reverses = dot(directionAt(pathBefore, 1.0), directionAt(pathAfter, 0.0)) < 0.0;
    const bool straight = std::abs(turn) <= kRoundingShare && !reverses;
    if (straight) { return; }
    if (turn * offset < 0.0) {
      if (std::abs(turn) < kNearlyStraight && !reverses) { trimCorner(after, corner); }
      return;
    }
    const auto mitre = rounded ? std::nullopt : mitrePoint(before, after, corner, offset);
    if (!mitre) {
      curves.emplace_back(ArcShape{endOf(before), corner, startOf(after), offset < 0.0});
      return;
    }
    setEnd(curves.back(), *mitre);
    setStart(after, *mitre);
    mitres.push_back({pathBefore, pathAfter, corner, distance(corner, *mitre)});
  }

  // What overlaps at a nearly straight inner corner is too near to its offset to be judged later.
  void trimCorner(Curve& after, Point corner) {
    Curve& before = curves.back();
    for (const Point at : crossingsOfEndless(before, after, kRoundingShare * std::abs(offset))) {
      const double there = parameterOf(before, at);
      const double here = parameterOf(after, at);
      if (there <= 0.0 || there > 1.0 || here < 0.0 || here >= 1.0) { continue; }
      if (distance(at, corner) > 2.0 * std::abs(offset)) { continue; }
      setEnd(before, at);
      setStart(after, at);
      return;
    }
  }
};

RawParallel rawParallel(const std::vector<Curve>& path, bool closed, double offset, bool rounded) {
  RawParallel raw{{}, {}, offset, rounded};
  const Curve* before = nullptr;  // the path's curve that raw ends with
  for (const Curve& curve : path) {
    auto moved = movedRight(curve, offset);
    if (moved && before != nullptr) { raw.joinCorner(*before, curve, *moved); }
    before = moved ? &curve : nullptr;
    if (moved) { raw.curves.push_back(*moved); }
  }
  const bool beginsWithFirst = movedRight(path.front(), offset).has_value();
  if (closed && before != nullptr && beginsWithFirst && path.size() > 1) {
    raw.joinCorner(*before, path.front(), raw.curves.front());
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

// All that can bound what lies nearer to the path than the offset: the raw parallel with its mitres, both
// sides of every curve, and a circle about every corner and end.
std::vector<Curve> reachOf(const std::vector<Curve>& path, const RawParallel& raw) {
  const double offset = raw.offset;
  std::vector<Curve> reach = raw.curves;
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

// What rounding can move a point by, far from the origin too.
double roundingOf(const std::vector<Curve>& path, double offset) {
  constexpr double kSteps = 32.0 * std::numeric_limits<double>::epsilon();
  double farthest = 0.0;
  for (const Curve& curve : path) { farthest = std::max(farthest, length(startOf(curve))); }
  return kRoundingShare * (1.0 + std::abs(offset)) + kSteps * farthest;
}

// Judges which pieces of the raw parallel keep their distance.
class Keeping {
 public:
  Keeping(const std::vector<Curve>& path, bool closed, const RawParallel& raw, double tolerance)
      : path_(path), closed_(closed), raw_(raw), reach_(reachOf(path, raw)), tolerance_(tolerance) {}

  // The runs of a raw curve, between cuts, that keep it.
  void addKept(const Curve& curve, std::vector<Curve>& kept) const {
    const std::vector<double> cuts = cutsOf(curve, reach_, tolerance_);
    const double size = lengthOf(curve);
    bool running = false;
    double from = 0.0;
    double to = 0.0;
    for (size_t cut = 0; cut + 1 < cuts.size(); ++cut) {
      if ((cuts[cut + 1] - cuts[cut]) * size <= tolerance_) { continue; }
      const bool keeps = keepsAt(curve, (cuts[cut] + cuts[cut + 1]) / 2.0, (cuts[cut + 1] - cuts[cut]) * size);
      if (running && !keeps) { kept.push_back(pieceOf(curve, from, to)); }
      if (keeps && !running) { from = cuts[cut]; }
      if (keeps) { to = cuts[cut + 1]; }
      running = keeps;
    }
    if (running) { kept.push_back(pieceOf(curve, from, to)); }
  }

 private:
  // In the middle of a piece of that size; how far it can lie on the wrong side shrinks with it.
  [[nodiscard]] bool keepsAt(const Curve& curve, double t, double size) const {
    constexpr double kNearly = 1e-7;
    constexpr double kOfSize = 1e-3;
    const Point p = pointAt(curve, t);
    const double offset = std::abs(raw_.offset);
    const double tolerance = std::min(offset * kNearly, size * kOfSize) + tolerance_;
    const auto claims = [&](const MitredCorner& mitre) { return mitre.claims(p, raw_.offset, tolerance); };
    const bool isNear = std::ranges::any_of(
        path_, [&](const Curve& side) { return distance(nearestOn(side, p), p) < offset - tolerance; });
    if (isNear || std::ranges::any_of(raw_.mitres, claims)) { return false; }
    if (closed_ && !liesBesideASide(p, tolerance) && reachesThrough(p, tolerance)) { return false; }
    return !liesOnAnother(curve, p, directionAt(curve, t));
  }

  [[nodiscard]] bool liesBesideASide(Point p, double tolerance) const {
    const double side = raw_.offset < 0.0 ? -1.0 : 1.0;
    const double most = std::abs(raw_.offset) + tolerance;
    return std::ranges::any_of(path_, [&](const Curve& curve) {
      return distance(nearestOn(curve, p), p) <= most && side * distanceRight(curve, p) >= most - 2.0 * tolerance;
    });
  }

  // The mitre of a sharp corner may reach through the other side of its ring, where it bounds nothing.
  [[nodiscard]] bool reachesThrough(Point p, double tolerance) const {
    constexpr double kBesideCorner = 1e-6;
    const bool within = encloses(path_, p);
    bool onMitre = false;
    for (const MitredCorner& mitre : raw_.mitres) {
      if (!mitre.claims(p, raw_.offset, -tolerance)) { continue; }
      if (encloses(path_, mitre.corner + (p - mitre.corner) * kBesideCorner) == within) { return false; }
      onMitre = true;
    }
    return onMitre;
  }

  // Where parallels lie on each other the first counts; those that run against each other bound nothing.
  [[nodiscard]] bool liesOnAnother(const Curve& curve, Point p, Point direction) const {
    constexpr double kSameDirection = 1e-6;
    for (const Curve& other : raw_.curves) {
      const bool later = &other >= &curve;
      const Point nearest = nearestOn(other, p);
      if (&other == &curve || squaredLength(nearest - p) > tolerance_ * tolerance_) { continue; }
      const Point along = directionAt(other, parameterOf(other, nearest));
      if (std::abs(cross(along, direction)) > kSameDirection) { continue; }
      if (!later || dot(along, direction) < 0.0) { return true; }
    }
    return false;
  }

  const std::vector<Curve>& path_;
  bool closed_;
  const RawParallel& raw_;
  std::vector<Curve> reach_;
  double tolerance_;
};

}  // namespace

std::vector<Curve> parallelOf(const std::vector<Curve>& path, bool closed, double offset, bool rounded,
                              const EndAngles& angles) {
  if (offset == 0.0 || path.empty()) { return path; }
  RawParallel raw = rawParallel(path, closed, offset, rounded);
  if (raw.curves.empty()) { return {}; }
  if (!closed) { cutEnds(raw.curves, offset, angles); }
  const Keeping keeping(path, closed, raw, roundingOf(path, offset));
  std::vector<Curve> kept;
  for (const Curve& curve : raw.curves) { keeping.addKept(curve, kept); }
  return kept;
}

}  // namespace brevan
