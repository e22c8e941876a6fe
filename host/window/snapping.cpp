#include "host/window/snapping.h"

#include <algorithm>

#include "host/macros/macro_drawing.h"

namespace brevan {

namespace {

constexpr double kMeets = 0.001;
// Beyond so many curves about the pick, nobody can tell their crossings apart.
constexpr size_t kMostCrossed = 64;

class Search {
 public:
  Search(Point p, double reach, const std::set<SnapKind>& kinds)
      : p_(p), reach_(reach), equal_(1e-9 * reach), kinds_(kinds) {}

  void offer(Point at, SnapKind kind) {
    const double distance = length(at - p_);
    if (!kinds_.contains(kind) || !(distance <= reach_) || !better(distance, kind)) { return; }
    best_ = SnapPoint{at, kind};
    bestDistance_ = distance;
  }
  void offerCurve(const Curve& curve, std::optional<Point> from) {
    if (!isClosed(curve)) {
      offer(startOf(curve), SnapKind::kEnd);
      offer(endOf(curve), SnapKind::kEnd);
      offer(pointAt(curve, 0.5), SnapKind::kMiddle);
    }
    if (const auto* arc = std::get_if<ArcShape>(&curve)) { offer(arc->centre, SnapKind::kCentre); }
    if (from) { offer(nearestOn(curve, *from), SnapKind::kPerpendicular); }
    const Point foot = nearestOn(curve, p_);
    offer(foot, SnapKind::kNearest);
    const double away = length(foot - p_);
    if (away <= reach_) { passing_.emplace_back(away, curve); }
  }
  // A crossing is no nearer than either of its curves, so those beyond the best point need no look.
  void offerCrossings() {
    if (!kinds_.contains(SnapKind::kIntersection)) { return; }
    std::ranges::stable_sort(passing_, {}, &Passing::first);
    const size_t count = std::min(passing_.size(), kMostCrossed);
    for (size_t second = 1; second < count && !isBeyondBest(passing_[second].first); ++second) {
      for (size_t first = 0; first < second; ++first) { offerCrossingsOf(passing_[first], passing_[second]); }
    }
  }
  [[nodiscard]] const std::optional<SnapPoint>& best() const { return best_; }

 private:
  using Passing = std::pair<double, Curve>;  // how near it passes

  [[nodiscard]] bool better(double distance, SnapKind kind) const {
    if (!best_) { return true; }
    const bool outline = kind == SnapKind::kNearest;
    if (outline != (best_->kind == SnapKind::kNearest)) { return !outline; }
    if (std::abs(distance - bestDistance_) <= equal_) { return kind < best_->kind; }
    return distance < bestDistance_;
  }
  [[nodiscard]] bool isBeyondBest(double distance) const {
    return best_ && best_->kind != SnapKind::kNearest && distance > bestDistance_ + equal_;
  }
  void offerCrossingsOf(const Passing& first, const Passing& second) {
    for (const Crossing& crossing : crossings(first.second, second.second, kMeets)) {
      offer(crossing.at, SnapKind::kIntersection);
    }
  }

  Point p_;
  double reach_;
  double equal_;  // distances that differ by less
  const std::set<SnapKind>& kinds_;
  std::vector<Passing> passing_;
  std::optional<SnapPoint> best_;
  double bestDistance_ = 0.0;
};

}  // namespace

std::optional<SnapPoint> snapAt(const Drawing& drawing, Point p, double reach, const std::set<SnapKind>& kinds,
                                std::optional<Point> from) {
  Box box;
  box.add(p);
  Search search(p, reach, kinds);
  for (const PrimitiveId id : drawing.inBox(box.grownBy(2.0 * reach))) {  // a text may lie beside its origin
    const Primitive& primitive = *drawing.find(id);
    if (!drawing.layer(primitive.layer)->visible) { continue; }
    if (const auto curve = curveOf(primitive)) {
      search.offerCurve(*curve, from);
    } else {
      forEachPoint(primitive.geometry, [&search](Point at) { search.offer(at, SnapKind::kOrigin); });
    }
  }
  search.offerCrossings();
  return search.best();
}

}  // namespace brevan
