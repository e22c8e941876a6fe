#include "host/drawing/outlines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <set>

#include "frame/host/number_text.h"
#include "host/drawing/boundary_map.h"
#include "host/drawing/line_types.h"

namespace brevan {

namespace {

constexpr size_t kNone = static_cast<size_t>(-1);

// A place where ends meet: the curves that end there, each as often as it does.
struct Junction {
  Point at;
  std::vector<size_t> curves;
};

// Finds the junction of an end among those nearby.
class Junctions {
 public:
  explicit Junctions(const std::vector<Curve>& curves) {
    for (size_t i = 0; i < curves.size(); ++i) {
      ends_.push_back({enter(startOf(curves[i]), i), enter(endOf(curves[i]), i)});
    }
  }
  [[nodiscard]] const Junction& at(size_t junction) const { return junctions_[junction]; }
  [[nodiscard]] const std::vector<Junction>& all() const { return junctions_; }
  [[nodiscard]] size_t start(size_t curve) const { return ends_[curve][0]; }
  [[nodiscard]] size_t end(size_t curve) const { return ends_[curve][1]; }

 private:
  using Cell = std::pair<int64_t, int64_t>;
  static constexpr double kCell = 4.0 * kOutlineJoin;

  size_t enter(Point p, size_t curve) {
    const Cell cell{std::llround(p.x / kCell), std::llround(p.y / kCell)};
    for (const int64_t dx : {-1, 0, 1}) {
      for (const int64_t dy : {-1, 0, 1}) {
        const auto [first, last] = cells_.equal_range({cell.first + dx, cell.second + dy});
        for (auto found = first; found != last; ++found) {
          Junction& junction = junctions_[found->second];
          if (distance(junction.at, p) > kOutlineJoin) { continue; }
          junction.curves.push_back(curve);
          return found->second;
        }
      }
    }
    cells_.emplace(cell, junctions_.size());
    junctions_.push_back({p, {curve}});
    return junctions_.size() - 1;
  }

  std::multimap<Cell, size_t> cells_;
  std::vector<Junction> junctions_;
  std::vector<std::array<size_t, 2>> ends_;
};

bool sameCurve(const Curve& a, const Curve& b) {
  const auto near = [](Point p, Point q) { return distance(p, q) <= kOutlineJoin; };
  const bool along = near(startOf(a), startOf(b)) && near(endOf(a), endOf(b));
  const bool against = near(startOf(a), endOf(b)) && near(endOf(a), startOf(b));
  return (along || against) && near(pointAt(a, 0.5), pointAt(b, 0.5));
}

bool sameCircle(const ArcShape& a, const ArcShape& b) {
  return distance(a.centre, b.centre) <= kOutlineJoin && std::abs(arcRadius(a) - arcRadius(b)) <= kOutlineJoin;
}

// Counter-clockwise, like every loop.
Loop circleLoop(ArcShape circle) {
  circle.clockwise = false;
  return {circle};
}

std::vector<Loop> circlesOf(const std::vector<Curve>& curves) {
  std::vector<Loop> circles;
  for (const Curve& curve : curves) {
    if (!isClosed(curve)) { continue; }
    const ArcShape& circle = std::get<ArcShape>(curve);
    const bool twice = std::ranges::any_of(
        circles, [&](const Loop& other) { return sameCircle(std::get<ArcShape>(other.front()), circle); });
    if (!twice) { circles.push_back(circleLoop(circle)); }
  }
  return circles;
}

// What has two ends, once each, but for lines without length.
std::vector<Curve> openCurvesOf(const std::vector<Curve>& curves) {
  std::vector<Curve> open;
  std::copy_if(curves.begin(), curves.end(), std::back_inserter(open),
               [](const Curve& curve) { return !isClosed(curve) && lengthOf(curve) > kOutlineJoin; });
  const Junctions junctions(open);
  std::vector<Curve> once;
  for (size_t i = 0; i < open.size(); ++i) {
    const auto& beside = junctions.at(junctions.start(i)).curves;
    const bool repeats =
        std::ranges::any_of(beside, [&](size_t other) { return other < i && sameCurve(open[other], open[i]); });
    if (!repeats) { once.push_back(open[i]); }
  }
  return once;
}

std::string placeText(Point p) { return numberText::format("%.3f, %.3f", p.x, p.y); }

// Follows the chains of curves from junction to junction.
class Chains {
 public:
  explicit Chains(std::vector<Curve> curves)
      : curves_(std::move(curves)), junctions_(curves_), used_(curves_.size(), false) {}

  void into(Outlines& outlines) {
    for (const Junction& junction : junctions_.all()) {
      if (junction.curves.size() == 2) { continue; }
      const char* const what = junction.curves.size() == 1 ? "%s: an end meets nothing" : "%s: more than two ends meet";
      outlines.faults.push_back(numberText::format(what, placeText(junction.at)));
    }
    for (size_t i = 0; i < curves_.size(); ++i) {
      if (used_[i]) { continue; }
      if (Loop loop = follow(i); !loop.empty()) { outlines.loops.push_back(std::move(loop)); }
    }
  }

 private:
  // The loop that a curve begins; empty where its chain runs into a junction that is none.
  Loop follow(size_t first) {
    Loop loop;
    const size_t start = junctions_.start(first);
    size_t at = start;
    for (size_t curve = first; curve != kNone; curve = nextAt(at)) {
      used_[curve] = true;
      const bool along = junctions_.start(curve) == at;
      loop.push_back(along ? curves_[curve] : reversed(curves_[curve]));
      at = along ? junctions_.end(curve) : junctions_.start(curve);
      if (at == start) { break; }
    }
    if (at != start || junctions_.at(start).curves.size() != 2) { return {}; }
    return signedArea(loop) < 0.0 ? reversed(loop) : loop;
  }

  [[nodiscard]] size_t nextAt(size_t junction) const {
    const auto& curves = junctions_.at(junction).curves;
    if (curves.size() != 2) { return kNone; }
    const auto next = std::ranges::find_if(curves, [this](size_t curve) { return !used_[curve]; });
    return next == curves.end() ? kNone : *next;
  }

  std::vector<Curve> curves_;
  Junctions junctions_;
  std::vector<bool> used_;
};

// Dashes and gaps alternate; a dot is the shorter of two kinds of dash.
bool hasDots(int linetype) {
  const auto pattern = lineType(linetype).pattern;
  for (size_t i = 2; i < pattern.size(); i += 2) {
    if (pattern[i] != pattern[0]) { return true; }
  }
  return false;
}

}  // namespace

Outlines outlinesOf(const std::vector<Curve>& curves) {
  Outlines outlines;
  outlines.loops = circlesOf(curves);
  Chains(openCurvesOf(curves)).into(outlines);
  return outlines;
}

Outlines outlinesOf(const Drawing& drawing, GroupId part) {
  std::vector<Curve> curves;
  for (const PrimitiveId id : drawing.membersOf(part)) {
    const Primitive& primitive = *drawing.find(id);
    if (hasDots(primitive.linetype)) { continue; }
    if (const auto* line = std::get_if<Line>(&primitive.geometry)) { curves.emplace_back(*line); }
    if (const auto* arc = std::get_if<Arc>(&primitive.geometry)) { curves.emplace_back(*arc); }
  }
  return outlinesOf(curves);
}

Loop withoutBreaks(const Loop& loop) {
  const auto goesOn = [](const Curve& before, const Curve& after) {
    const auto* a = std::get_if<Segment>(&before);
    const auto* b = std::get_if<Segment>(&after);
    return a != nullptr && b != nullptr && distance(directionAt(*a, 1.0), directionAt(*b, 0.0)) < kOutlineJoin;
  };
  Loop whole;
  for (const Curve& curve : loop) {
    if (!whole.empty() && goesOn(whole.back(), curve)) {
      std::get<Segment>(whole.back()).b = endOf(curve);
    } else {
      whole.push_back(curve);
    }
  }
  if (whole.size() > 1 && goesOn(whole.back(), whole.front())) {
    std::get<Segment>(whole.front()).a = startOf(whole.back());
    whole.pop_back();
  }
  return whole;
}

// ---- The figure at a point ------------------------------------------------------------------------------------

namespace {

std::optional<Curve> curveOf(const Primitive& primitive) {
  if (const auto* line = std::get_if<Line>(&primitive.geometry)) { return *line; }
  if (const auto* arc = std::get_if<Arc>(&primitive.geometry)) { return *arc; }
  return std::nullopt;
}

bool isShownCurve(const Drawing& drawing, const Primitive& primitive) {
  return drawing.layer(primitive.layer)->visible && curveOf(primitive).has_value();
}

// All that hangs together with a curve.
std::vector<Curve> figureOf(const Drawing& drawing, PrimitiveId first) {
  std::vector<PrimitiveId> reached = {first};
  std::set<PrimitiveId> seen = {first};
  std::vector<Curve> figure;
  for (size_t at = 0; at < reached.size(); ++at) {
    figure.push_back(*curveOf(*drawing.find(reached[at])));
    const Curve curve = figure.back();
    for (const PrimitiveId id : drawing.inBox(boundsOf(curve).grownBy(BoundaryMap::kJoin))) {
      const Primitive& other = *drawing.find(id);
      if (seen.contains(id) || !isShownCurve(drawing, other)) { continue; }
      if (crossings(curve, *curveOf(other), BoundaryMap::kJoin).empty()) { continue; }
      seen.insert(id);
      reached.push_back(id);
    }
  }
  return figure;
}

Point leftmostPoint(const Curve& curve) {
  const Box box = boundsOf(curve);
  for (const Point end : {startOf(curve), endOf(curve)}) {
    if (end.x - box.low.x <= kOutlineJoin) { return end; }
  }
  return nearestOn(curve, {box.low.x, std::get<ArcShape>(curve).centre.y});
}

}  // namespace

// What bounds a figure on its left belongs to its outer outline.
Loop outerLoopAt(Drawing& drawing, Point p) {
  const auto shown = [&drawing](PrimitiveId, const Primitive& primitive) { return isShownCurve(drawing, primitive); };
  const PrimitiveId nearest = drawing.nearest(p, std::numeric_limits<double>::max(), shown);
  if (nearest == 0) { return {}; }
  const std::vector<Curve> figure = figureOf(drawing, nearest);
  const auto left = [](const Curve& curve) { return boundsOf(curve).low.x; };
  const double edge = left(*std::ranges::min_element(figure, {}, left));
  BoundaryMap map(drawing);
  Loop best;
  for (const Curve& curve : figure) {
    if (left(curve) > edge + kOutlineJoin) { continue; }
    const Point at = leftmostPoint(curve);
    Loop loop = map.figureOfNearest(at + (pointAt(curve, 0.5) - at) * 1e-3);
    if (std::abs(signedArea(loop)) > std::abs(signedArea(best))) { best = std::move(loop); }
  }
  best = withoutBreaks(best);
  return signedArea(best) < 0.0 ? reversed(best) : best;
}

}  // namespace brevan
