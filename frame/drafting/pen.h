#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "frame/drafting/line_style.h"
#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix {

enum class ArcSense : int { kCounterClockwise = 0, kClockwise = 1 };
enum class CircleStart { kLeft, kRight };

// How a text is written, as the host's font call takes it. Sizes and angles hold on paper.
struct TextStyle {
  double height = 0.0;    // tenths of a millimetre, the em size
  int justification = 0;  // 1 to 9 or 11 to 19, see gsSetFont
  double angle = 0.0;     // tenths of a degree
  double style = 0.0;     // flags: 4 underlined, 16 as numbers of erven
  double width = 1.0;     // width factor
  std::string font{};
  int pen = 1;          // 1 to 256; 256 is by layer
  double eighth = 0.0;  // handed on as the view gave them
  double ninth = 0.0;
};

// The head of an arrow, in tenths of a millimetre on paper, and the three style numbers of gsSetArrow.
struct ArrowHead {
  double length = 0.0;
  double width = 0.0;
  int style1 = 0;
  int style2 = 0;
  int style3 = 256;  // the pen
};

// Draws in one line style, on the view's current layer unless a layer is given.
class DraftingPen {
 public:
  DraftingPen(CCadWindow& view, const LineStyle& style, std::optional<int> layer = std::nullopt)
      : view_(view), style_(style), layer_(layer) {}

  // A line without length would print as a dot: none is drawn.
  void line(Point from, Point to) const;
  // Lines from each point to the next.
  void path(std::span<const Point> points) const;
  void path(std::initializer_list<Point> points) const { path(std::span(points.begin(), points.size())); }
  void arc(Point start, Point centre, Point end, ArcSense sense) const;
  // Runs clockwise.
  void circle(Point centre, double radius, CircleStart from = CircleStart::kLeft) const;
  // In the text style's own pen and a continuous line of no width. An empty text draws nothing.
  void text(Point at, std::string_view text, const TextStyle& style) const;
  // From the tail to the head.
  void arrow(Point tail, Point head, const ArrowHead& shape) const;

 private:
  void begin(PrimitiveType type, const LineStyle& style) const;

  CCadWindow& view_;
  LineStyle style_;
  std::optional<int> layer_;
};

}  // namespace ardenix
