#pragma once

#include <algorithm>

#include "frame/drafting/point.h"

namespace ardenix::survey {

// The lowest and highest coordinates of something, in drawing units.
struct Extents {
  Point low;
  Point high;

  [[nodiscard]] Point centre() const { return middle(low, high); }
  // Farther out by this much on every side.
  [[nodiscard]] Extents grownBy(double margin) const {
    return {{low.x - margin, low.y - margin}, {high.x + margin, high.y + margin}};
  }
  void add(const Extents& other) {
    add(other.low);
    add(other.high);
  }
  void add(Point point) {
    low = {std::min(low.x, point.x), std::min(low.y, point.y)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y)};
  }
};

}  // namespace ardenix::survey
