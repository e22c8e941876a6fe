#include "survey/sheet/paper_box.h"

#include <algorithm>

namespace ardenix::survey {

namespace {

// Clips the stroke's parameter range to one pair of the box's edges; false where nothing is left.
bool clip(double from, double way, double low, double high, double& begin, double& end) {
  if (way == 0.0) { return from >= low && from <= high; }
  const double first = (low - from) / way;
  const double second = (high - from) / way;
  begin = std::max(begin, std::min(first, second));
  end = std::min(end, std::max(first, second));
  return begin <= end;
}

// A column of a justification is 0 left, 1 centre, 2 right; a row 0 bottom, 1 middle, 2 top.
int justificationOf(int column, int row) { return 3 * column + row + 1; }

// A direction falls into one of eight parts: the text lies to the right of a point on its left, and so on.
int part(double component) {
  constexpr double kEighth = 0.382683432365;  // sine of an eighth of half a turn
  return component > kEighth ? 0 : component < -kEighth ? 2 : 1;
}

}  // namespace

bool overlap(const PaperBox& one, const PaperBox& other) {
  return one.low.x <= other.high.x && other.low.x <= one.high.x && one.low.y <= other.high.y &&
         other.low.y <= one.high.y;
}

bool crosses(const PaperStroke& stroke, const PaperBox& box) {
  double begin = 0.0;
  double end = 1.0;
  const Point way = stroke.b - stroke.a;
  return clip(stroke.a.x, way.x, box.low.x, box.high.x, begin, end) &&
         clip(stroke.a.y, way.y, box.low.y, box.high.y, begin, end);
}

double distanceTo(const PaperBox& box, Point p) {
  const Point nearest{std::clamp(p.x, box.low.x, box.high.x), std::clamp(p.y, box.low.y, box.high.y)};
  return distance(p, nearest);
}

LeadingText leadingText(double distance, double angle, Point size) {
  const Point anchor = polar(distance, angle);
  const int column = part(std::cos(angle));
  const int row = part(std::sin(angle));
  const Point low = anchor - Point{size.x * column / 2.0, size.y * row / 2.0};
  return {{anchor, justificationOf(column, row)}, {low, low + size}};
}

}  // namespace ardenix::survey
