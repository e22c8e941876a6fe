#include <algorithm>
#include <array>
#include <limits>

#include "host/drawing/boundary_map.h"

// Boundaries are followed with the point's side to the left: at each junction the walk takes the first curve
// clockwise from the one it came by.
namespace brevan {

namespace {

constexpr double kSameDirection = 1e-7;  // radians
constexpr double kSameBend = 1e-9;

Point minus(Point a) { return {-a.x, -a.y}; }

bool hasArea(const Loop& loop) { return std::abs(signedArea(loop)) > BoundaryMap::kJoin * perimeterOf(loop); }

// How far clockwise from where the walk came; what runs back the way it came is last, unless it bends off
// to the right at once.
double turnFrom(Point reverse, double reverseBend, Point direction, double bend) {
  const double turn = positiveAngle(angleOf(reverse) - angleOf(direction));
  if (turn > kSameDirection && turn < 2.0 * kPi - kSameDirection) { return turn; }
  if (std::abs(bend - reverseBend) <= kSameBend) { return 2.0 * kPi; }
  return bend < reverseBend ? 0.0 : 2.0 * kPi - kSameDirection;
}

}  // namespace

bool BoundaryMap::leads(const HalfEdge& edge) {
  const Entry& entry = known(edge.from.curve);
  const int next = edge.from.node + edge.direction;
  return isClosed(entry.curve) || (next >= 0 && next < std::ssize(entry.nodes));
}

BoundaryMap::NodeRef BoundaryMap::farEnd(const HalfEdge& edge) {
  const Entry& entry = known(edge.from.curve);
  const int count = static_cast<int>(std::ssize(entry.nodes));
  return {edge.from.curve, (edge.from.node + edge.direction + count) % count};
}

Point BoundaryMap::directionOf(const HalfEdge& edge) {
  const Entry& entry = known(edge.from.curve);
  return directionAt(entry.curve, entry.nodes[static_cast<size_t>(edge.from.node)].t) * edge.direction;
}

std::optional<BoundaryMap::HalfEdge> BoundaryMap::nextFrom(NodeRef node, Point reverse, double reverseCurvature) {
  gatherJunction(node);
  std::optional<HalfEdge> best;
  double bestTurn = std::numeric_limits<double>::infinity();
  double bestBend = 0.0;
  for (const NodeRef& ref : junction_) {
    for (const int direction : {1, -1}) {
      const HalfEdge edge{ref, direction};
      if (!leads(edge)) { continue; }
      const double bend = curvature(entries_[static_cast<size_t>(ref.curve)].curve) * direction;
      const double turn = turnFrom(reverse, reverseCurvature, directionOf(edge), bend);
      const bool same = std::abs(turn - bestTurn) <= kSameDirection;
      const bool sameBend = std::abs(bend - bestBend) <= kSameBend;
      // Of curves that lie on each other any will do, but always the same.
      const bool better = !same ? turn < bestTurn : !sameBend ? bend > bestBend : ref < best->from;
      if (best && !better) { continue; }
      best = edge;
      bestTurn = turn;
      bestBend = bend;
    }
  }
  return best;
}

Curve BoundaryMap::pieceAlong(const HalfEdge& edge, Point start, Point end) {
  const Entry& entry = entries_[static_cast<size_t>(edge.from.curve)];
  if (std::holds_alternative<Segment>(entry.curve)) { return Segment{start, end}; }
  const auto& arc = std::get<ArcShape>(entry.curve);
  return ArcShape{start, arc.centre, end, edge.direction > 0 ? arc.clockwise : !arc.clockwise};
}

namespace {

bool samePlace(const Curve& first, const Curve& second) {
  return distance(pointAt(first, 0.5), pointAt(second, 0.5)) <= 2.0 * BoundaryMap::kJoin;
}

}  // namespace

std::vector<BoundaryMap::Step> BoundaryMap::walk(const HalfEdge& first) {
  std::vector<Step> steps;
  const auto name = [this] { return *std::min_element(junction_.begin(), junction_.end()); };
  const auto place = [this](NodeRef node) {
    return entries_[static_cast<size_t>(node.curve)].nodes[static_cast<size_t>(node.node)].at;
  };
  gatherJunction(first.from);
  NodeRef start = name();
  const size_t most = 8 * entries_.size() * entries_.size() + 64;
  for (HalfEdge edge = first; steps.size() < most;) {
    const NodeRef far = farEnd(edge);
    const Entry& entry = known(edge.from.curve);
    const Point arriving = directionAt(entry.curve, entry.nodes[static_cast<size_t>(far.node)].t) * edge.direction;
    const auto next = nextFrom(far, minus(arriving), -curvature(entry.curve) * edge.direction);
    const NodeRef end = name();
    steps.push_back({edge, start, end, pieceAlong(edge, place(start), place(end))});
    const Step& begun = steps.front();
    if (steps.size() > 1 && begun.start == start && begun.end == end && samePlace(begun.piece, steps.back().piece)) {
      steps.pop_back();
      return steps;
    }
    if (!next) { return {}; }
    edge = *next;
    start = end;
  }
  return {};
}

std::vector<BoundaryMap::Step> BoundaryMap::walkFrom(int curve, double t, Point side) {
  const Entry& entry = known(curve);
  const Point along = directionAt(entry.curve, t);
  const int direction = cross(along, side) > 0.0 ? 1 : -1;
  if (entry.nodes.empty()) {
    const NodeRef self{curve, -1};
    return {{{self, direction}, self, self, direction > 0 ? entry.curve : reversed(entry.curve)}};
  }
  const auto after = std::upper_bound(entry.nodes.begin(), entry.nodes.end(), t,
                                      [](double at, const Node& node) { return at < node.t; });
  const int count = static_cast<int>(std::ssize(entry.nodes));
  const int behind = (static_cast<int>(after - entry.nodes.begin()) - 1 + count) % count;
  return walk({{curve, direction > 0 ? behind : (behind + 1) % count}, direction});
}

// Takes the walk apart into loops that pass no junction twice; what is walked there and back falls out.
std::vector<std::vector<BoundaryMap::Step>> BoundaryMap::loopsOf(const std::vector<Step>& steps) const {
  struct Hash {
    size_t operator()(NodeRef node) const {
      return std::hash<uint64_t>()(static_cast<uint64_t>(static_cast<uint32_t>(node.curve)) << 32 |
                                   static_cast<uint32_t>(node.node));
    }
  };
  std::vector<std::vector<Step>> loops;
  std::vector<Step> open;
  std::unordered_map<NodeRef, size_t, Hash> startAt;
  for (const Step& step : steps) {
    const bool turnsBack = !open.empty() && open.back().start == step.end && open.back().end == step.start &&
                           step.start != step.end && samePlace(open.back().piece, step.piece);
    if (turnsBack) {
      startAt.erase(open.back().start);
      open.pop_back();
      continue;
    }
    startAt.emplace(step.start, open.size());
    open.push_back(step);
    const auto closes = startAt.find(step.end);
    if (closes == startAt.end()) { continue; }
    const auto first = open.begin() + static_cast<std::ptrdiff_t>(closes->second);
    loops.emplace_back(first, open.end());
    for (const Step& closed : loops.back()) { startAt.erase(closed.start); }
    open.erase(first, open.end());
  }
  return loops;
}

// The pieces of one curve that follow each other become one again.
Loop BoundaryMap::joined(const std::vector<Step>& steps, bool closed) const {
  const auto goesOn = [](const Step& a, const Step& b) {
    return a.edge.from.curve == b.edge.from.curve && a.edge.direction == b.edge.direction;
  };
  size_t first = 0;
  while (closed && first < steps.size() && goesOn(steps[(first + steps.size() - 1) % steps.size()], steps[first])) {
    ++first;
  }
  first %= steps.size();
  Loop loop;
  for (size_t at = 0; at < steps.size(); ++at) {
    const Step& step = steps[(first + at) % steps.size()];
    if (at > 0 && goesOn(steps[(first + at - 1) % steps.size()], step)) {
      std::visit(
          [&step](auto& shape) {
            if constexpr (std::is_same_v<std::decay_t<decltype(shape)>, Segment>) {
              shape.b = endOf(step.piece);
            } else {
              shape.end = endOf(step.piece);
            }
          },
          loop.back());
    } else {
      loop.push_back(step.piece);
    }
  }
  return loop;
}

void BoundaryMap::noteSources(const std::vector<Step>& steps) {
  sources_.clear();
  for (const Step& step : steps) { sources_.push_back(step.edge.from.curve); }
  std::sort(sources_.begin(), sources_.end());
  sources_.erase(std::unique(sources_.begin(), sources_.end()), sources_.end());
}

// ---- From a point -----------------------------------------------------------------------------------------

std::optional<BoundaryMap::Hit> BoundaryMap::firstHit(Point p, Point ray, double from) {
  const double reach = distance(p, extents_.centre()) + extents_.width() + extents_.height();
  // Far from the origin a crossing is rounded to the digits that coordinates have there.
  constexpr double kExact = 1e-9;
  constexpr double kRounding = 1e-14;  // of a coordinate
  const double exact = std::max({kExact, std::abs(p.x) * kRounding, std::abs(p.y) * kRounding});
  double step = stride_;
  for (double start = from; start < reach; start += step, step *= 2.0) {
    const Segment look{p + ray * start, p + ray * (start + step)};
    std::optional<Hit> best;
    index_.query(boundsOf(look), [&](int near) {
      for (const Crossing& crossing : crossings(look, entries_[static_cast<size_t>(near)].curve, exact)) {
        const double along = dot(crossing.at - p, ray);
        if (along <= from + kJoin || (best && along >= best->along)) { continue; }
        best = Hit{near, crossing.second, along};
      }
    });
    if (!best) { continue; }
    // The next ray will find as much near it: looking further costs more than looking twice.
    stride_ = std::max(kJoin, 0.8 * stride_ + 0.2 * 2.0 * (best->along - from));
    return best;
  }
  return std::nullopt;
}

bool BoundaryMap::besideJunction(const Hit& hit, Point ray) {
  const Entry& entry = known(hit.curve);
  constexpr double kGrazing = 1e-3;
  if (std::abs(cross(directionAt(entry.curve, hit.t), ray)) < kGrazing) { return true; }
  const int node = nodeAt(hit.curve, hit.t);
  if (node < 0) { return false; }
  const Point at = pointAt(entry.curve, hit.t);
  return distance(entry.nodes[static_cast<size_t>(node)].at, at) <= 4.0 * kJoin;
}

std::optional<Loop> BoundaryMap::aroundByRay(Point p, Point ray) {
  double from = 0.0;
  while (const auto hit = firstHit(p, ray, from)) {
    if (besideJunction(*hit, ray)) { return std::nullopt; }
    const std::vector<Step> steps = walkFrom(hit->curve, hit->t, minus(ray));
    if (steps.empty()) { return std::nullopt; }
    Loop best;
    for (const std::vector<Step>& loop : loopsOf(steps)) {
      Loop candidate = joined(loop, true);
      if (!hasArea(candidate) || !encloses(candidate, p)) { continue; }
      if (!best.empty() && std::abs(signedArea(candidate)) >= std::abs(signedArea(best))) { continue; }
      best = std::move(candidate);
      noteSources(loop);
    }
    if (!best.empty()) { return signedArea(best) > 0.0 ? reversed(best) : best; }
    // An island: what surrounds the point lies beyond it.
    from = hit->along + kJoin;
    const double far = distance(p, extents_.centre()) + extents_.width() + extents_.height();
    for (const Step& step : steps) {
      for (const Crossing& crossing : crossings(Segment{p, p + ray * far}, step.piece, kJoin)) {
        from = std::max(from, dot(crossing.at - p, ray));
      }
    }
  }
  return Loop{};
}

Loop BoundaryMap::around(Point p) {
  update();
  sources_.clear();
  if (!isFinite(p)) { return {}; }
  static constexpr std::array<Point, 8> kRays = {{{1.0, 0.0137},
                                                  {-1.0, 0.0171},
                                                  {0.0113, 1.0},
                                                  {0.0191, -1.0},
                                                  {1.0, -0.0523},
                                                  {-1.0, -0.0719},
                                                  {-0.0811, 1.0},
                                                  {-0.0923, -1.0}}};
  for (const Point ray : kRays) {
    if (const auto loop = aroundByRay(p, ray * (1.0 / length(ray)))) { return *loop; }
  }
  return {};
}

int BoundaryMap::nearestEntry(Point p) const {
  Box around;
  around.add(p);
  for (double reach = stride_; !extents_.empty(); reach *= 2.0) {
    int best = -1;
    const Box box = around.grownBy(reach);
    const bool all = box.holds(extents_);  // into its corners, too
    double bestDistance = all ? std::numeric_limits<double>::infinity() : reach;
    index_.query(box, [&](int near) {
      const double away = distance(nearestOn(entries_[static_cast<size_t>(near)].curve, p), p);
      if (away > bestDistance || (away == bestDistance && near > best && best >= 0)) { return; }
      best = near;
      bestDistance = away;
    });
    if (best >= 0 || all) { return best; }
  }
  return -1;
}

// Only one way leads on from where this edge starts.
bool BoundaryMap::endsChain(const HalfEdge& edge) {
  gatherJunction(edge.from);
  int ways = 0;
  for (const NodeRef& ref : junction_) {
    for (const int direction : {1, -1}) { ways += leads({ref, direction}) ? 1 : 0; }
  }
  return ways == 1;
}

// A point beyond the end of a chain lies on one side of its last curve's line: that side is to the left of the
// edge away from the end, or of the one that comes to it.
BoundaryMap::HalfEdge BoundaryMap::passBesideEnd(const HalfEdge& fromEnd, Point side) {
  if (cross(directionOf(fromEnd), side) >= 0.0) { return fromEnd; }
  return {farEnd(fromEnd), -fromEnd.direction};
}

std::vector<BoundaryMap::Step> BoundaryMap::walkBeside(int curve, Point p) {
  const Entry& entry = known(curve);
  const Point foot = nearestOn(entry.curve, p);
  const double t = std::clamp(parameterOf(entry.curve, foot), 0.0, 1.0);
  const int node = nodeAt(curve, t);
  const bool atNode = node >= 0 && distance(entry.nodes[static_cast<size_t>(node)].at, foot) <= 4.0 * kJoin;
  if (!atNode || p == foot) { return walkFrom(curve, t, p - foot); }
  const auto first = nextFrom({curve, node}, p - foot, 0.0);
  if (!first) { return {}; }
  return walk(endsChain(*first) ? passBesideEnd(*first, p - foot) : *first);
}

std::optional<BoundaryMap::Outline> BoundaryMap::openChain(std::vector<Step> steps) const {
  const size_t count = steps.size();
  const auto turns = [&](size_t at) {
    const Step& here = steps[at % count];
    const Step& next = steps[(at + 1) % count];
    return here.start == next.end && samePlace(here.piece, next.piece);
  };
  size_t dead = 0;
  while (dead < count && !turns(dead)) { ++dead; }
  if (dead == count || count % 2 != 0) { return std::nullopt; }
  const size_t half = count / 2;
  for (size_t at = 0; at < half; ++at) {
    const Step& there = steps[(dead + 1 + at) % count];
    const Step& back = steps[(dead + count - at) % count];
    if (there.start != back.end || !samePlace(there.piece, back.piece)) { return std::nullopt; }
  }
  // The walk began beside the point: the pass that holds its first step has the point to its left.
  const size_t first = (count - (dead + 1) % count) % count < half ? dead + 1 : dead + 1 + half;
  std::rotate(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(first % count), steps.end());
  steps.resize(half);
  return Outline{joined(steps, false), false};
}

// Clockwise; empty where the steps enclose nothing.
Loop BoundaryMap::largestLoop(const std::vector<Step>& steps) const {
  Loop best;
  for (const std::vector<Step>& loop : loopsOf(steps)) {
    Loop candidate = joined(loop, true);
    if (!hasArea(candidate)) { continue; }
    if (best.empty() || std::abs(signedArea(candidate)) > std::abs(signedArea(best))) { best = std::move(candidate); }
  }
  return !best.empty() && signedArea(best) > 0.0 ? reversed(best) : best;
}

std::optional<BoundaryMap::Outline> BoundaryMap::outlineNear(Point p) {
  Loop inside = around(p);
  if (!inside.empty()) { return Outline{std::move(inside), true}; }
  const int nearest = nearestEntry(p);
  if (nearest < 0) { return std::nullopt; }
  const std::vector<Step> steps = walkBeside(nearest, p);
  if (steps.empty()) { return std::nullopt; }
  Loop best = largestLoop(steps);
  if (best.empty()) { return openChain(steps); }
  return Outline{std::move(best), true};
}

// Between the junctions before and behind a place on a curve.
double BoundaryMap::middleOfPiece(int curve, double t) {
  const Entry& entry = known(curve);
  const std::vector<Node>& nodes = entry.nodes;
  if (nodes.empty()) { return t; }
  const auto after =
      std::upper_bound(nodes.begin(), nodes.end(), t, [](double at, const Node& node) { return at < node.t; });
  if (isClosed(entry.curve)) {
    const double first = after == nodes.begin() ? nodes.back().t - 1.0 : std::prev(after)->t;
    const double last = after == nodes.end() ? nodes.front().t + 1.0 : after->t;
    const double middle = (first + last) / 2.0;
    return middle - std::floor(middle);
  }
  const auto behind = std::clamp(after, nodes.begin() + 1, nodes.end() - 1);
  return (std::prev(behind)->t + behind->t) / 2.0;
}

Loop BoundaryMap::figureOfNearest(Point p) {
  update();
  const int nearest = nearestEntry(p);
  if (nearest < 0) { return {}; }
  const Curve curve = known(nearest).curve;
  const double t = middleOfPiece(nearest, std::clamp(parameterOf(curve, nearestOn(curve, p)), 0.0, 1.0));
  const Point along = directionAt(curve, t);
  const Point left{-along.y, along.x};
  Loop one = largestLoop(walkFrom(nearest, t, left));
  Loop other = largestLoop(walkFrom(nearest, t, minus(left)));
  if (one.empty() || (!other.empty() && std::abs(signedArea(other)) > std::abs(signedArea(one)))) { return other; }
  return one;
}

}  // namespace brevan
