#pragma once

#include <algorithm>
#include <limits>

#include "host/geometry/point.h"

namespace brevan {

// An axis-parallel box; a fresh one is empty and grows by what is added.
struct Box {
  Point low{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
  Point high{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

  [[nodiscard]] bool empty() const { return low.x > high.x || low.y > high.y; }
  [[nodiscard]] double width() const { return empty() ? 0.0 : high.x - low.x; }
  [[nodiscard]] double height() const { return empty() ? 0.0 : high.y - low.y; }
  [[nodiscard]] Point centre() const { return middle(low, high); }
  void add(Point p) {
    low = {std::min(low.x, p.x), std::min(low.y, p.y)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y)};
  }
  void add(const Box& other) {
    if (other.empty()) { return; }
    add(other.low);
    add(other.high);
  }
  [[nodiscard]] Box grownBy(double margin) const {
    if (empty()) { return *this; }
    Box grown = *this;
    grown.low = low - Point{margin, margin};
    grown.high = high + Point{margin, margin};
    return grown;
  }
  [[nodiscard]] bool meets(const Box& other) const {
    return low.x <= other.high.x && other.low.x <= high.x && low.y <= other.high.y && other.low.y <= high.y;
  }
  [[nodiscard]] bool holds(Point p) const { return low.x <= p.x && p.x <= high.x && low.y <= p.y && p.y <= high.y; }
  [[nodiscard]] bool holds(const Box& other) const { return holds(other.low) && holds(other.high); }
};

}  // namespace brevan
