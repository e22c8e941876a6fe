#pragma once

#include <span>

#include "frame/host/cad_window.h"
#include "frame/point.h"
#include "mech/line_style.h"

namespace ardenix {

enum class ArcSense : int { kCounterClockwise = 0, kClockwise = 1 };

// Draws in one line style on the view's current layer.
class DraftingPen {
 public:
  DraftingPen(CCadWindow& view, const LineStyle& style) : view_(view), style_(style) {}

  void line(Point from, Point to) const;
  // Lines from each point to the next.
  void path(std::span<const Point> points) const;
  void path(std::initializer_list<Point> points) const { path(std::span(points.begin(), points.size())); }
  void arc(Point start, Point centre, Point end, ArcSense sense) const;
  // Starts at the leftmost point and runs clockwise.
  void circle(Point centre, double radius) const;

 private:
  void begin(PrimitiveType type) const;

  CCadWindow& view_;
  LineStyle style_;
};

}  // namespace ardenix
