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

// Sides that were met, each once, whichever way round it was met. Two are the same whose lengths and middles lie within
// 0.01 drawing units and whose directions lie within 0.001 radians.
class SidesMet {
 public:
  struct Met : ErfSide {
    double direction = 0.0;
    bool shared = false;  // by two erven
  };

  void add(const ErfSide& side);
  // In the order in which they were met first.
  [[nodiscard]] const std::vector<Met>& all() const { return met_; }

 private:
  [[nodiscard]] Met* alike(const Met& side);

  std::vector<Met> met_;
  std::unordered_map<long long, std::vector<size_t>> byMiddle_;  // by its cell
};

}  // namespace ardenix::survey
