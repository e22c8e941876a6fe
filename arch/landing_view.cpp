#include <algorithm>
#include <cmath>

#include "arch/repeat_layer.h"
#include "arch/stair_drawing.h"

namespace ardenix::arch {

namespace {

// A landing seen from one side: every edge that faces the viewer, level, in its place square to the way of looking.
// The floor lies at the height of the base point.
class LandingView {
 public:
  LandingView(const StairSheet& sheet, const Landing& landing, int viewDirection, Point base)
      : sheet_(sheet),
        landing_(landing),
        base_(base),
        towards_(quarterWay(viewDirection)),
        solid_(sheet.solid()),
        repeated_(sheet.view) {}

  void draw() {
    const std::vector<Point> outer = landing_.edge(0.0);
    const std::vector<Point> inner = landing_.edge(sheet_.stair.treads.width);
    edges(outer, landing_.turnsLeft() ? Hand::kRight : Hand::kLeft);
    edges(inner, landing_.turnsLeft() ? Hand::kLeft : Hand::kRight);
    slab({outer.front(), inner.front()}, -landing_.legs().front());
    slab({outer.back(), inner.back()}, landing_.legs().back());
    repeated_.settle();
  }

 private:
  enum class Hand { kLeft, kRight };  // of somebody who walks up

  struct Edge {
    Point from;
    Point to;
  };

  [[nodiscard]] const RailingRecord& railing() const { return sheet_.stair.railing; }
  // The floor of the view lies towards the viewer of the plan, so that the view stands folded out from it.
  [[nodiscard]] Point up() const { return -towards_; }
  [[nodiscard]] Point along() const { return -quarterTurned(up()); }
  [[nodiscard]] double place(Point onPlan) const { return dot(onPlan - landing_.start, along()); }
  [[nodiscard]] Point at(double place, double height) const { return base_ + along() * place + up() * height; }
  void line(Point from, Point to) const { solid_.line(at(from.x, from.y), at(to.x, to.y)); }

  void edges(const std::vector<Point>& edge, Hand hand) {
    const bool railed = hand == Hand::kLeft ? railing().left : railing().right;
    const std::vector<Point> legs = landing_.legs();
    for (size_t i = 0; i < legs.size(); ++i) {
      const Point normal = hand == Hand::kLeft ? quarterTurned(legs[i]) : -quarterTurned(legs[i]);
      const auto seen = slab({edge[i], edge[i + 1]}, normal);
      if (seen && railed) { rail(*seen); }
    }
  }

  // The edge of the floor where it faces the viewer; from left to right.
  std::optional<Strip> slab(const Edge& edge, Point normal) const {
    if (dot(normal, towards_) < 0.5) { return std::nullopt; }
    const auto [from, to] = std::minmax(place(edge.from), place(edge.to));
    if (to - from < kNoLength) { return std::nullopt; }
    const double under = -sheet_.stair.treads.nosingHeight;
    solid_.path({at(from, 0.0), at(to, 0.0), at(to, under), at(from, under), at(from, 0.0)});
    return Strip{from, to};
  }

  void rail(Strip seen) {
    const double newel = railing().newelWidth;
    const double height = railing().guardHeight + railing().newelHeight;
    for (const double from : {seen.from, seen.to - newel}) {
      solid_.path({at(from, 0.0), at(from, height), at(from + newel, height), at(from + newel, 0.0)});
    }
    const Strip between{seen.from + newel, seen.to - newel};
    if (between.to <= between.from) { return; }
    band(between, railing().guardHeight - railing().guardDepth, railing().guardHeight);
    if (!railing().bottomRail) { return; }
    band(between, railing().bottomHeight, railing().bottomHeight + railing().bottomDepth);
    if (railing().hasBalusters()) { balusters(between); }
  }
  void band(Strip between, double under, double top) const {
    line({between.from, under}, {between.to, under});
    line({between.from, top}, {between.to, top});
  }

  void balusters(Strip between) {
    const double spacing = sheet_.stair.balusterSpacing();
    const int count = static_cast<int>(std::ceil((between.to - between.from) / spacing)) - 1;
    if (count < 1) { return; }
    repeated_.settle();
    const double half = railing().balusterWidth / 2.0;
    const double first = between.from + spacing;
    const double foot = railing().bottomHeight + railing().bottomDepth;
    for (const double edge : {first - half, first + half}) {
      line({edge, foot}, {edge, railing().guardHeight - railing().guardDepth});
    }
    repeated_.multiply(count - 1, at(first, foot), at(first + spacing, foot));
  }

  const StairSheet& sheet_;
  const Landing& landing_;
  Point base_;
  Point towards_;
  DraftingPen solid_;
  RepeatLayer repeated_;
};

}  // namespace

void drawLandingView(const StairSheet& sheet, const Landing& landing, int viewDirection, Point base) {
  LandingView(sheet, landing, viewDirection, base).draw();
}

}  // namespace ardenix::arch
