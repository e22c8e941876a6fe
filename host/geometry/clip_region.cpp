#include "host/geometry/clip_region.h"

#include <algorithm>
#include <array>

namespace brevan {

namespace {

std::array<Point, 4> cornersOf(const Box& box) {
  return {{box.low, {box.high.x, box.low.y}, box.high, {box.low.x, box.high.y}}};
}

template <class Corners>
std::vector<Curve> closedOutline(const Corners& corners) {
  std::vector<Curve> sides;
  for (size_t at = 0; at < corners.size(); ++at) {
    sides.emplace_back(Segment{corners[at], corners[(at + 1) % corners.size()]});
  }
  return sides;
}

bool lies(ClipRegion::Place place, const KeepRule& rule) {
  return place == ClipRegion::Place::kInside ? rule.inside
         : place == ClipRegion::Place::kEdge ? rule.edge
                                             : rule.outside;
}

// Where the curve changes sides, sorted; cuts nearer to an end or to each other than the edge is wide are none.
std::vector<double> cutsOf(const Curve& curve, const ClipRegion& region) {
  std::vector<double> cuts;
  const Box near = boundsOf(curve).grownBy(ClipRegion::kEdgeWidth);
  for (const Curve& side : region.outline()) {
    if (!near.meets(boundsOf(side))) { continue; }
    for (const Crossing& crossing : crossings(curve, side, ClipRegion::kEdgeWidth)) { cuts.push_back(crossing.first); }
  }
  std::sort(cuts.begin(), cuts.end());
  const double shortest = ClipRegion::kEdgeWidth / lengthOf(curve);
  const bool closed = isClosed(curve);
  std::vector<double> kept;
  for (const double cut : cuts) {
    if (!closed && (cut <= shortest || cut >= 1.0 - shortest)) { continue; }
    if (kept.empty() || cut - kept.back() > shortest) { kept.push_back(cut); }
  }
  if (closed && kept.size() > 1 && kept.front() + 1.0 - kept.back() <= shortest) { kept.pop_back(); }
  return kept;
}

// A piece between two cuts lies on one side, or along the edge when it nowhere leaves it.
ClipRegion::Place placeOfPiece(const Curve& curve, double from, double to, const ClipRegion& region) {
  for (const double part : {0.5, 0.25, 0.75, 0.1, 0.9}) {
    const auto place = region.place(pointAt(curve, from + (to - from) * part));
    if (place != ClipRegion::Place::kEdge) { return place; }
  }
  return ClipRegion::Place::kEdge;
}

struct Run {
  double from = 0.0;
  double to = 1.0;
};

// The borders of the pieces; of a full circle they go once round from the first cut.
std::vector<double> bordersOf(const Curve& curve, const std::vector<double>& cuts) {
  std::vector<double> borders = cuts;
  if (isClosed(curve) && !cuts.empty()) {
    borders.push_back(cuts.front() + 1.0);
    return borders;
  }
  borders.insert(borders.begin(), 0.0);
  borders.push_back(1.0);
  return borders;
}

std::vector<Run> keptRuns(const Curve& curve, const std::vector<double>& borders, const ClipRegion& region,
                          const KeepRule& rule) {
  std::vector<Run> runs;
  for (size_t at = 0; at + 1 < borders.size(); ++at) {
    if (!lies(placeOfPiece(curve, borders[at], borders[at + 1], region), rule)) { continue; }
    if (!runs.empty() && runs.back().to == borders[at]) {
      runs.back().to = borders[at + 1];
    } else {
      runs.push_back({borders[at], borders[at + 1]});
    }
  }
  const bool goesRound =
      isClosed(curve) && runs.size() > 1 && runs.front().from == borders.front() && runs.back().to == borders.back();
  if (goesRound) {
    runs.back().to = runs.front().to + 1.0;
    runs.erase(runs.begin());
  }
  return runs;
}

}  // namespace

ClipRegion ClipRegion::window(Point corner, Point opposite) {
  ClipRegion region;
  region.bounds_.add(corner);
  region.bounds_.add(opposite);
  region.outline_ = closedOutline(cornersOf(region.bounds_));
  return region;
}

ClipRegion ClipRegion::circle(Point centre, double radius) {
  ClipRegion region;
  region.kind_ = Kind::kCircle;
  region.centre_ = centre;
  region.radius_ = radius;
  const Point start = centre + Point{radius, 0.0};
  region.outline_ = {ArcShape{start, centre, start}};
  region.bounds_ = boundsOf(region.outline_.front());
  return region;
}

ClipRegion ClipRegion::polygon(const std::vector<Point>& corners) {
  ClipRegion region;
  region.kind_ = Kind::kPolygon;
  region.outline_ = closedOutline(corners);
  for (const Point corner : corners) { region.bounds_.add(corner); }
  return region;
}

double ClipRegion::distanceToEdge(Point p) const {
  if (kind_ == Kind::kCircle) { return std::abs(distance(p, centre_) - radius_); }
  double least = std::numeric_limits<double>::infinity();
  for (const Curve& side : outline_) {
    const auto& segment = std::get<Segment>(side);
    least = std::min(least, squaredLength(p - nearestOnSegment(segment, p)));
  }
  return std::sqrt(least);
}

bool ClipRegion::encloses(Point p) const {
  if (kind_ == Kind::kWindow) { return bounds_.holds(p); }
  if (kind_ == Kind::kCircle) { return distance(p, centre_) <= radius_; }
  bool odd = false;
  for (const Curve& side : outline_) {
    const auto& [a, b] = std::get<Segment>(side);
    if ((a.y > p.y) == (b.y > p.y)) { continue; }
    if (p.x < a.x + (b.x - a.x) * ((p.y - a.y) / (b.y - a.y))) { odd = !odd; }
  }
  return odd;
}

ClipRegion::Place ClipRegion::place(Point p) const {
  if (!bounds_.grownBy(kEdgeWidth).holds(p)) { return Place::kOutside; }
  if (distanceToEdge(p) <= kEdgeWidth) { return Place::kEdge; }
  return encloses(p) ? Place::kInside : Place::kOutside;
}

bool ClipRegion::holds(const Box& box) const {
  if (!bounds_.grownBy(kEdgeWidth).holds(box)) { return false; }
  if (kind_ == Kind::kWindow) { return true; }
  const auto corners = cornersOf(box);
  const bool cornersIn =
      std::all_of(corners.begin(), corners.end(), [this](Point corner) { return place(corner) != Place::kOutside; });
  if (!cornersIn || kind_ == Kind::kCircle) { return cornersIn; }
  // A notch of the polygon may reach into a box whose corners are all inside.
  const KeepRule outsideOnly{false, false, true};
  return std::none_of(corners.begin(), corners.end(), [&](const Point& corner) {
    const Point next = corners[(static_cast<size_t>(&corner - corners.data()) + 1) % corners.size()];
    const auto outside = cutByRegion(Segment{corner, next}, *this, outsideOnly);
    return !outside || !outside->empty();
  });
}

std::optional<std::vector<Curve>> cutByRegion(const Curve& curve, const ClipRegion& region, const KeepRule& rule) {
  const std::vector<double> borders = bordersOf(curve, cutsOf(curve, region));
  const std::vector<Run> runs = keptRuns(curve, borders, region, rule);
  if (runs.size() == 1 && runs.front().from == borders.front() && runs.front().to == borders.back()) {
    return std::nullopt;
  }
  std::vector<Curve> pieces;
  pieces.reserve(runs.size());
  for (const Run& run : runs) { pieces.push_back(pieceOf(curve, run.from, run.to)); }
  return pieces;
}

}  // namespace brevan
