#include "desktop/snapping.h"

#include "host/macros/macro_drawing.h"

namespace brevan {

namespace {

constexpr double kMeets = 0.001;
// Beyond so many curves about the pick, nobody can tell their crossings apart.
constexpr size_t kMostCrossed = 64;

class Search {
 public:
  Search(Point p, double reach, const std::set<SnapKind>& kinds) : p_(p), reach_(reach), kinds_(kinds) {}

  void offer(Point at, SnapKind kind) {
    const double distance = length(at - p_);
    if (!kinds_.contains(kind) || distance > reach_) { return; }
    const bool better = !best_ || (best_->kind == SnapKind::kNearest && kind != SnapKind::kNearest) ||
                        (distance < bestDistance_ && (kind != SnapKind::kNearest || best_->kind == kind));
    if (!better) { return; }
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
    offer(nearestOn(curve, p_), SnapKind::kNearest);
  }
  [[nodiscard]] const std::optional<SnapPoint>& best() const { return best_; }

 private:
  Point p_;
  double reach_;
  const std::set<SnapKind>& kinds_;
  std::optional<SnapPoint> best_;
  double bestDistance_ = 0.0;
};

}  // namespace

std::optional<SnapPoint> snapAt(const Drawing& drawing, Point p, double reach, const std::set<SnapKind>& kinds,
                                std::optional<Point> from) {
  Box box;
  box.add(p);
  Search search(p, reach, kinds);
  std::vector<Curve> near;
  for (const PrimitiveId id : drawing.inBox(box.grownBy(reach))) {
    const Primitive& primitive = *drawing.find(id);
    if (!drawing.layer(primitive.layer)->visible) { continue; }
    const auto curve = curveOf(primitive);
    if (!curve) { continue; }
    search.offerCurve(*curve, from);
    if (length(nearestOn(*curve, p) - p) <= reach && near.size() < kMostCrossed) { near.push_back(*curve); }
  }
  for (size_t first = 0; first < near.size() && kinds.contains(SnapKind::kIntersection); ++first) {
    for (size_t second = first + 1; second < near.size(); ++second) {
      for (const Crossing& crossing : crossings(near[first], near[second], kMeets)) {
        search.offer(crossing.at, SnapKind::kIntersection);
      }
    }
  }
  return search.best();
}

}  // namespace brevan
