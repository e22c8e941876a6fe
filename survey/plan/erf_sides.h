#pragma once

#include <span>
#include <unordered_map>
#include <vector>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

// The sides of erven as their boundaries are found in the drawing.
namespace ardenix::survey {

struct ErfSide {
  Point from;
  Point to;
};

// Draws the boundary round a point on the current layer, which is a scratch layer and is emptied first, and reads its
// lines, in order and clockwise on paper; an arc is a chain of chords. None where no boundary closes round the point.
std::vector<ErfSide> traceErf(CCadWindow& view, Point inside);

// The chords of each arc made one side, from its first point to its last.
std::vector<ErfSide> withoutChords(CCadWindow& view, std::span<const ErfSide> boundary);
// The same, and pieces of a straight boundary made one side.
std::vector<ErfSide> wholeSides(CCadWindow& view, std::span<const ErfSide> boundary);

// Sides that were met, whichever way round. Two are the same whose lengths and middles lie within 0.01 drawing units
// and whose directions lie within 0.001 radians.
class SidesMet {
 public:
  // False for one that was met before.
  bool add(const ErfSide& side);

 private:
  struct Met {
    Point middle;
    double length;
    double direction;
  };
  [[nodiscard]] bool isMet(const Met& side) const;

  std::unordered_map<long long, std::vector<Met>> met_;  // by the cell of the middle
};

}  // namespace ardenix::survey
