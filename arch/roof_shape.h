#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "arch/plan_pick.h"
#include "arch/roof_skeleton.h"

namespace ardenix::arch {

// A roof of one pitch over its outline, in space: heights count from the eaves.
class RoofShape {
 public:
  // Nothing where the outline carries no roof.
  static std::optional<RoofShape> over(RoofOutline outline, double slope);

  // Ridges, hips and valleys on plan; verges lie on the outline and are none of them.
  [[nodiscard]] std::vector<PlanLine> seamsOnPlan() const;

  // What is seen of it from a side: x counts along `right`, y the height above the eaves. `away` leads from the roof to
  // the viewer.
  [[nodiscard]] std::vector<PlanLine> seenFrom(Point away, Point right) const;

  [[nodiscard]] double highest() const;

 private:
  // A corner in space.
  struct Peak {
    Point at;
    double height = 0.0;
  };
  struct Edge {
    Peak from;
    Peak to;
    std::vector<size_t> faces;
  };
  // A face as it is seen: its outline, and its plane by what is nearer to the viewer.
  struct Seen {
    size_t side = 0;
    std::vector<Point> outline;
    double depthAtOrigin = 0.0;
    double depthAlong = 0.0;  // more of it for each unit to the right
    double depthUp = 0.0;

    [[nodiscard]] double depth(Point p) const { return depthAtOrigin + depthAlong * p.x + depthUp * p.y; }
    [[nodiscard]] bool holds(Point p) const;
  };
  struct View {
    Point away;
    Point right;
    [[nodiscard]] Point seen(const Peak& peak) const { return {dot(peak.at, right), peak.height}; }
    [[nodiscard]] double depth(const Peak& peak) const { return dot(peak.at, away); }
  };

  RoofShape(RoofOutline outline, std::vector<RoofSeam> seams, double slope)
      : outline_(std::move(outline)), seams_(std::move(seams)), slope_(slope) {}
  [[nodiscard]] bool isGable(size_t side) const { return outline_.sides[side] == RoofSide::kGable; }
  [[nodiscard]] Point inwards(size_t side) const {
    return quarterTurned(unit(outline_.corner(side + 1) - outline_.corner(side)));
  }
  [[nodiscard]] std::vector<Edge> edges() const;
  [[nodiscard]] std::optional<Seen> faceSeen(size_t side, const View& view, const std::vector<Edge>& edges) const;
  [[nodiscard]] static std::vector<Point> outlineOf(std::vector<PlanLine> strokes);
  static void addVisible(const Edge& edge, const View& view, const std::vector<Seen>& faces,
                         std::vector<PlanLine>& strokes);

  RoofOutline outline_;
  std::vector<RoofSeam> seams_;
  double slope_;
};

}  // namespace ardenix::arch
