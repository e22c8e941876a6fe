#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "host/drawing/drawing.h"

namespace brevan {

// Walls on plan, as they can be told from other lines: a wall is a group, its faces are the outermost of parallel lines
// that are not dashed. Foundations are dashed and count for nothing, nor do openings.

// Whether a group is a symbol with the jambs of its opening.
bool isOpening(const Drawing& drawing, GroupId group);

// Which layers walls lie on.
using WallLayers = std::function<bool(const Layer& layer)>;

// A straight run of a wall. Its own coordinates count along the face on which its origin lies and, to the left of that,
// across to the other face.
struct WallRun {
  GroupId group = 0;
  Point origin;
  Point along{1.0, 0.0};  // a unit vector
  double thickness = 0.0;

  [[nodiscard]] Point across() const { return {-along.y, along.x}; }
  [[nodiscard]] Point at(double alongFace, double inwards) const {
    return origin + along * alongFace + across() * inwards;
  }
  // Along and across, as x and y.
  [[nodiscard]] Point own(Point p) const { return {dot(p - origin, along), cross(along, p - origin)}; }
};

// Coordinates of walls that differ by less, in drawing units, are the same; they come printed with three decimals.
inline constexpr double kWallRounding = 0.002;

// Nothing thicker is a wall.
double thickestWall(const Drawing& drawing);

// The lines in a box of which walls may be made: visible, not dashed, in a group that is no opening.
std::vector<PrimitiveId> wallLines(const Drawing& drawing, const Box& box, const WallLayers& layers);

// Both run the same way or against each other.
bool isParallel(const Line& line, Point unit);

// The run of a wall within reach of a point: its origin is the foot of the point on the nearer face, and the wall lies
// to the left. Before an opening it is that of the opening, without a group. Nothing where none is there.
std::optional<WallRun> wallAt(const Drawing& drawing, Point p, double reach, const WallLayers& layers);

}  // namespace brevan
