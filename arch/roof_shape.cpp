#include "arch/roof_shape.h"

#include <algorithm>

namespace ardenix::arch {

namespace {

constexpr double kClose = 1e-3;        // drawing units; corners of a roof that are nearer are one
constexpr double kFacesViewer = 1e-6;  // less turned to him is seen from its edge

bool same(Point a, Point b) { return distance(a, b) <= kClose; }

bool isStroke(const PlanLine& one, const PlanLine& other) {
  return (same(one.a, other.a) && same(one.b, other.b)) || (same(one.a, other.b) && same(one.b, other.a));
}

// Where a line crosses another, as a share of its length.
std::optional<double> shareAt(const PlanLine& line, const PlanLine& other) {
  const Point along = line.b - line.a;
  const Point across = other.b - other.a;
  const double turn = cross(along, across);
  if (std::abs(turn) <= 1e-12 * length(along) * length(across)) { return std::nullopt; }
  const double share = cross(other.a - line.a, across) / turn;
  return share > 0.0 && share < 1.0 ? std::optional(share) : std::nullopt;
}

}  // namespace

std::optional<RoofShape> RoofShape::over(RoofOutline outline, double slope) {
  auto seams = roofSeams(outline);
  if (!seams) { return std::nullopt; }
  return RoofShape(std::move(outline), *std::move(seams), slope);
}

std::vector<PlanLine> RoofShape::seamsOnPlan() const {
  std::vector<PlanLine> lines;
  for (const RoofSeam& seam : seams_) {
    if (!isGable(seam.left) && !isGable(seam.right) && !outline_.isOneFace(seam.left, seam.right)) {
      lines.push_back({seam.from, seam.to});
    }
  }
  return lines;
}

double RoofShape::highest() const {
  double inwards = 0.0;
  for (const RoofSeam& seam : seams_) { inwards = std::max(inwards, seam.toInwards); }
  return inwards * slope_;
}

// ---- As it is seen from a side --------------------------------------------------------------------------------

std::vector<RoofShape::Edge> RoofShape::edges() const {
  std::vector<Edge> all;
  all.reserve(seams_.size() + outline_.count());
  for (size_t side = 0; side < outline_.count(); ++side) {
    all.push_back({{outline_.corner(side), 0.0}, {outline_.corner(side + 1), 0.0}, {side}});
  }
  for (const RoofSeam& seam : seams_) {
    all.push_back(
        {{seam.from, seam.fromInwards * slope_}, {seam.to, seam.toInwards * slope_}, {seam.left, seam.right}});
  }
  return all;
}

// Stroke after stroke, each from where the one before ends.
std::vector<Point> RoofShape::outlineOf(std::vector<PlanLine> strokes) {
  std::vector<Point> outline{strokes.front().b};
  strokes.erase(strokes.begin());
  while (true) {
    const auto next = std::ranges::find_if(strokes, [&](const PlanLine& stroke) {
      return same(stroke.a, outline.back()) || same(stroke.b, outline.back());
    });
    if (next == strokes.end()) { return outline; }
    outline.push_back(same(next->a, outline.back()) ? next->b : next->a);
    strokes.erase(next);
  }
}

// Nothing for a face that is turned away.
std::optional<RoofShape::Seen> RoofShape::faceSeen(size_t side, const View& view,
                                                   const std::vector<Edge>& edges) const {
  const Point in = inwards(side);
  const double facing = dot(in, view.away);
  if (facing > -kFacesViewer) { return std::nullopt; }
  std::vector<PlanLine> strokes;
  for (const Edge& edge : edges) {
    if (std::ranges::find(edge.faces, side) == edge.faces.end()) { continue; }
    strokes.push_back({view.seen(edge.from), view.seen(edge.to)});
  }
  return Seen{.side = side,
              .outline = outlineOf(std::move(strokes)),
              .depthAtOrigin = dot(outline_.corner(side), in) / facing,
              .depthAlong = -dot(view.right, in) / facing,
              .depthUp = isGable(side) ? 0.0 : 1.0 / (slope_ * facing)};
}

bool RoofShape::Seen::holds(Point p) const {
  bool inside = false;
  for (size_t at = 0; at < outline.size(); ++at) {
    const Point a = outline[at];
    const Point b = outline[(at + 1) % outline.size()];
    if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * (p.y - a.y) / (b.y - a.y)) { inside = !inside; }
  }
  return inside;
}

// The pieces of an edge that no face hides.
void RoofShape::addVisible(const Edge& edge, const View& view, const std::vector<Seen>& faces,
                           std::vector<PlanLine>& strokes) {
  const PlanLine line{view.seen(edge.from), view.seen(edge.to)};
  if (same(line.a, line.b)) { return; }
  std::vector<double> cuts{0.0, 1.0};
  for (const Seen& face : faces) {
    for (size_t at = 0; at < face.outline.size(); ++at) {
      const auto share = shareAt(line, {face.outline[at], face.outline[(at + 1) % face.outline.size()]});
      if (share) { cuts.push_back(*share); }
    }
  }
  std::ranges::sort(cuts);
  const auto at = [&](double share) { return line.a + (line.b - line.a) * share; };
  const auto hidden = [&](double share) {
    const double depth = view.depth(edge.from) * (1.0 - share) + view.depth(edge.to) * share;
    return std::ranges::any_of(
        faces, [&](const Seen& face) { return face.holds(at(share)) && face.depth(at(share)) > depth + kClose; });
  };
  std::optional<double> from;
  const auto finish = [&](double to) {
    const PlanLine stroke{at(*from), at(to)};
    from.reset();
    const auto isThis = [&](const PlanLine& other) { return isStroke(stroke, other); };
    if (!same(stroke.a, stroke.b) && std::ranges::none_of(strokes, isThis)) { strokes.push_back(stroke); }
  };
  for (size_t cut = 0; cut + 1 < cuts.size(); ++cut) {
    const bool isSeen = !hidden((cuts[cut] + cuts[cut + 1]) / 2.0);
    if (isSeen && !from) { from = cuts[cut]; }
    if (!isSeen && from) { finish(cuts[cut]); }
  }
  if (from) { finish(1.0); }
}

std::vector<PlanLine> RoofShape::seenFrom(Point away, Point right) const {
  const View view{away, right};
  const std::vector<Edge> all = edges();
  std::vector<Seen> faces;
  for (size_t side = 0; side < outline_.count(); ++side) {
    if (auto face = faceSeen(side, view, all)) { faces.push_back(*std::move(face)); }
  }
  const auto isSeen = [&](size_t side) { return std::ranges::find(faces, side, &Seen::side) != faces.end(); };
  std::vector<PlanLine> strokes;
  for (const Edge& edge : all) {
    const bool within = edge.faces.size() > 1 && outline_.isOneFace(edge.faces.front(), edge.faces.back());
    if (!within && std::ranges::any_of(edge.faces, isSeen)) { addVisible(edge, view, faces, strokes); }
  }
  return strokes;
}

}  // namespace ardenix::arch
