#include <algorithm>

#include "arch/repeat_layer.h"
#include "arch/stair_drawing.h"

namespace ardenix::arch {

namespace {

// A flight seen along its run. Places are given across it from its left edge, and up from its floor.
class FlightFace {
 public:
  FlightFace(const StairSheet& sheet, const Flight& flight, bool fromTop)
      : sheet_(sheet),
        base_(flight.base),
        up_(-quarterWay(flight.direction)),
        across_(quarterTurned(up_)),
        fromTop_(fromTop),
        solid_(sheet.solid()),
        repeated_(sheet.view) {}

  void draw() {
    if (fromTop_) {
      rowsFromTop();
    } else {
      rows();
      rowAt(1, {{0.0, treads().width}});
    }
    outline();
    if (railing().left) { posts({0.0, railing().newelWidth}); }
    if (railing().right) { posts({treads().width - railing().newelWidth, treads().width}); }
    guardRails();
    walkLine();
    repeated_.settle();
  }

 private:
  using Strips = std::vector<Strip>;

  [[nodiscard]] const TreadRecord& treads() const { return sheet_.stair.treads; }
  [[nodiscard]] const RailingRecord& railing() const { return sheet_.stair.railing; }
  [[nodiscard]] Point at(double across, double up) const { return base_ + across_ * across + up_ * up; }
  void line(Strip strip, double up) const { solid_.line(at(strip.from, up), at(strip.to, up)); }

  // ---- Steps ----------------------------------------------------------------------------------------------------

  // The edge of a tread: its underside and its top.
  void rowAt(int tread, const Strips& strips) const {
    const double top = tread * treads().rise;
    for (const double height : {top - treads().nosingHeight, top}) {
      for (const Strip strip : strips) { line(strip, height); }
    }
  }
  void rowsBetween(int first, int last, const Strips& strips) {
    if (first > last) { return; }
    rowAt(first, strips);
    multiply(last - first, first * treads().rise, treads().rise);
  }
  void multiply(int copies, double from, double by) { repeated_.multiply(copies, at(0.0, from), at(0.0, from + by)); }

  // Behind the guard rail nothing of a tread is seen. Below it the rails run through between the newels, and a newel
  // alone stands before the tread.
  void rows() {
    const int belowRail = static_cast<int>(railing().guardHeight / treads().rise - 2.0) + 2;
    rowsBetween(2, std::min(belowRail, treads().treads), stripsBesideNewels());
    rowsBetween(belowRail + 1, treads().treads, stripsBesideRails(sheet_.stair));
  }
  [[nodiscard]] Strips stripsBesideNewels() const {
    const double newel = railing().newelWidth;
    return {{railing().left ? newel : 0.0, treads().width - (railing().right ? newel : 0.0)}};
  }

  void rowsFromTop() {
    if (treads().treads < 2) { return; }
    line({0.0, treads().width}, 2.0 * treads().rise);
    multiply(treads().treads - 2, 2.0 * treads().rise, treads().rise);
  }

  void outline() const {
    const double top = sheet_.stair.height();
    const double width = treads().width;
    solid_.line(at(0.0, 0.0), at(width, 0.0));
    solid_.line(at(width, 0.0), at(width, top));
    solid_.line(at(0.0, 0.0), at(0.0, top));
  }

  // ---- Railing --------------------------------------------------------------------------------------------------

  // The tops of the newels, one above the other, and the whole newel at the top.
  void posts(Strip post) {
    const double height = sheet_.stair.newelPostHeight();
    const double first = treads().rise + height;
    repeated_.settle();
    line(post, first);
    multiply(sheet_.stair.newelIndex() + 1, first, railing().treadsPerNewel * treads().rise);
    const double foot = sheet_.stair.height() - treads().rise;
    solid_.path({at(post.from, foot), at(post.from, foot + height), at(post.to, foot + height), at(post.to, foot)});
  }

  void guardRails() const {
    const double outer = railing().newelWidth;
    const double inner = outer + railing().railWidth;
    if (railing().left) { guardRail({outer, inner}); }
    if (railing().right) { guardRail({treads().width - inner, treads().width - outer}); }
  }
  void guardRail(Strip rail) const {
    const double top = sheet_.stair.height() + railing().guardHeight;
    const double foot = treads().rise + railing().guardHeight;
    const double under = (fromTop_ ? top : foot) - railing().guardDepth;
    solid_.path({at(rail.from, under), at(rail.from, top), at(rail.to, top), at(rail.to, under), at(rail.from, under)});
    if (!fromTop_) { line(rail, foot); }
  }

  void walkLine() const {
    const double middle = treads().width / 2.0;
    sheet_.arrow().arrow(at(middle, treads().rise), at(middle, sheet_.stair.height()), sheet_.settings.arrowHead());
  }

  const StairSheet& sheet_;
  Point base_;
  Point up_;
  Point across_;
  bool fromTop_;
  DraftingPen solid_;
  RepeatLayer repeated_;
};

}  // namespace

void drawFlightFace(const StairSheet& sheet, const Flight& flight, bool fromTop) {
  FlightFace(sheet, flight, fromTop).draw();
}

}  // namespace ardenix::arch
