#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/drafting/point.h"

namespace ardenix::arch {

// A side of a roof's outline on plan: a roof rises from it inwards, or it ends in an upright gable.
enum class RoofSide { kEaves, kGable };

// Where two faces of a roof meet, on plan; each face is named by its side of the outline. How far the lines of the
// eaves have moved inwards when they come to an end tells its height: that times the slope.
struct RoofSeam {
  Point from;
  Point to;
  double fromInwards = 0.0;
  double toInwards = 0.0;
  size_t left = 0;
  size_t right = 0;
};

// The outline of a roof, counter-clockwise, corner n and the next being the ends of side n.
struct RoofOutline {
  std::vector<Point> corners;
  std::vector<RoofSide> sides;

  [[nodiscard]] size_t count() const { return corners.size(); }
  [[nodiscard]] Point corner(size_t side) const { return corners[side % corners.size()]; }
  // Whether two sides give one face: eaves in one line.
  [[nodiscard]] bool isOneFace(size_t side, size_t other) const;
};

// The seams of all faces of equal pitch over a simple outline: the straight skeleton, in which gables stand still. The
// outline is moved inwards from one meeting of its corners and sides to the next; what meets at one time is resolved
// together, so symmetrical houses need no care. Nothing where the outline is no simple figure or has no eaves.
std::optional<std::vector<RoofSeam>> roofSeams(const RoofOutline& outline);

}  // namespace ardenix::arch
