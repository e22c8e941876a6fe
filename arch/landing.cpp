#include <cmath>

#include "arch/stair_drawing.h"

namespace ardenix::arch {

namespace {

constexpr int kRightOfRun = 90;

}  // namespace

// ---- Shape --------------------------------------------------------------------------------------------------

std::optional<Landing> landingThrough(Point start, Point corner, Point end, double width) {
  using enum Landing::Shape;
  const int direction = quarterOf(start, corner);
  const Point run = quarterWay(direction);
  const Point right = quarterWay(direction + kRightOfRun);
  const double across = dot(end - start, right);
  const double beyond = dot(end - corner, run);
  const bool beside = std::fabs(beyond) < width / 4.0;
  if (std::fabs(across) < kNoLength && !beside && beyond < 0.0) { return std::nullopt; }
  return Landing{.shape = beside         ? kQuarterTurn
                          : beyond > 0.0 ? kStraightOn
                                         : kHalfTurn,
                 .direction = direction,
                 .start = start,
                 .corner = corner,
                 .end = end,
                 .side = across < 0.0 ? -right : right};
}

std::vector<Point> Landing::edge(double inwards) const {
  const Point in = side * inwards;
  const Point back = -run() * inwards;
  const double across = dot(end - start, side);
  const Point turn = corner + side * dot(end - corner, side);  // the far end of the edge across
  std::vector<Point> points = {start + in, corner + in + back};
  switch (shape) {
    case Shape::kQuarterTurn: points.push_back(turn + back); break;
    case Shape::kHalfTurn:
      points.push_back(turn - in + back);
      points.push_back(start + side * across - in);
      break;
    case Shape::kStraightOn:
      points.push_back(turn + in + back);
      points.push_back(end + in);
      break;
  }
  return points;
}

std::vector<Point> Landing::legs() const {
  switch (shape) {
    case Shape::kQuarterTurn: return {run(), side};
    case Shape::kHalfTurn: return {run(), side, -run()};
    case Shape::kStraightOn: break;
  }
  if (std::fabs(dot(end - start, side)) < kNoLength) { return {run(), run(), run()}; }
  return {run(), side, run()};
}

// ---- Plan ---------------------------------------------------------------------------------------------------

namespace {

class LandingPlan {
 public:
  LandingPlan(const StairSheet& sheet, const Landing& landing)
      : sheet_(sheet), landing_(landing), solid_(sheet.solid()) {}

  void draw() const {
    path(solid_, landing_.edge(0.0));
    path(solid_, landing_.edge(width()));
    if (railing().left) { rail(landing_.turnsLeft()); }
    if (railing().right) { rail(!landing_.turnsLeft()); }
    walkLine();
  }

 private:
  [[nodiscard]] double width() const { return sheet_.stair.treads.width; }
  [[nodiscard]] const RailingRecord& railing() const { return sheet_.stair.railing; }

  // Pieces without length are left out.
  static void path(const DraftingPen& pen, const std::vector<Point>& points) {
    for (size_t i = 1; i < points.size(); ++i) {
      if (distance(points[i - 1], points[i]) > kNoLength) { pen.line(points[i - 1], points[i]); }
    }
  }

  void rail(bool alongInnerEdge) const {
    const double outer = railing().newelWidth;
    const double inner = outer + railing().railWidth;
    const auto inwards = [&](double fromEdge) { return alongInnerEdge ? width() - fromEdge : fromEdge; };
    path(solid_, landing_.edge(inwards(outer)));
    path(solid_, landing_.edge(inwards(inner)));
    newels(landing_.edge(inwards(0.0)), landing_.edge(inwards(outer)));
  }

  // A newel stands between each corner of an edge and that of its rail. Two of its sides lie on the edge where the
  // landing fills the corner, or continue the rail where it goes round the corner; the other two are drawn.
  void newels(const std::vector<Point>& edge, const std::vector<Point>& rail) const {
    const std::vector<Point> legs = landing_.legs();
    for (size_t i = 1; i < legs.size(); ++i) {
      if (nearlyEqual(legs[i - 1], legs[i])) { continue; }
      const Point diagonal = rail[i] - edge[i];
      const Point before = legs[i - 1] * dot(diagonal, legs[i - 1]);
      const Point after = legs[i] * dot(diagonal, legs[i]);
      const Point from = dot(diagonal, legs[i - 1]) < 0.0 ? rail[i] : edge[i];
      solid_.line(from, edge[i] + before);
      solid_.line(from, edge[i] + after);
    }
  }

  void walkLine() const {
    std::vector<Point> points = landing_.edge(width() / 2.0);
    const Point head = points.back();
    points.pop_back();
    path(sheet_.arrow(), points);
    sheet_.arrow().arrow(points.back(), head, sheet_.settings.arrowHead());
  }

  const StairSheet& sheet_;
  const Landing& landing_;
  DraftingPen solid_;
};

}  // namespace

void drawLandingPlan(const StairSheet& sheet, const Landing& landing) { LandingPlan(sheet, landing).draw(); }

}  // namespace ardenix::arch
