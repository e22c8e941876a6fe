#include <algorithm>
#include <array>
#include <cmath>

#include "arch/repeat_layer.h"
#include "arch/stair_drawing.h"

namespace ardenix::arch {

namespace {

// A line of a rail: parallel to the pitch line between the newels, level at both ends.
struct RailLine {
  double abovePitch;
  double aboveFloor;  // of the floor at the foot, and of that at the top
};

struct Newel {
  double middle;
  double base;
};

// A flight seen from its side. Places are given along its run from the base, and up from its floor.
class FlightSide {
 public:
  FlightSide(const StairSheet& sheet, const Flight& flight)
      : sheet_(sheet),
        base_(flight.base),
        run_(quarterWay(flight.direction)),
        up_(quarterTurned(run_)),
        solid_(sheet.solid()),
        repeated_(sheet.view) {}

  void draw() {
    steps();
    if (!railing().hasRail()) { return; }
    if (bays() >= 0) { firstBays(); }
    lastBay();
    newels();
    railEnds();
    endBalusters();
    repeated_.settle();
  }

 private:
  [[nodiscard]] const TreadRecord& treads() const { return sheet_.stair.treads; }
  [[nodiscard]] const RailingRecord& railing() const { return sheet_.stair.railing; }
  [[nodiscard]] Point at(double along, double up) const { return base_ + run_ * along + up_ * up; }
  void line(Point from, Point to) const { solid_.line(at(from.x, from.y), at(to.x, to.y)); }
  void repeat(int copies, Point from, Point to) { repeated_.repeat(copies, at(from.x, from.y), at(to.x, to.y)); }

  // ---- Steps: riser, underside and edge of the nosing, tread -------------------------------------------------

  void steps() {
    const double riser = treads().foot;
    const double nosing = riser - treads().nosing;
    const double tread = treads().rise;
    const double underNosing = tread - treads().nosingHeight;
    solid_.path({at(riser, 0.0), at(riser, underNosing), at(nosing, underNosing), at(nosing, tread),
                 at(riser + treads().going, tread)});
    repeat(treads().treads - 1, {riser, 0.0}, {riser + treads().going, tread});
    line({0.0, 0.0}, {riser, 0.0});
    repeated_.settle();
  }

  // ---- Rails --------------------------------------------------------------------------------------------------

  [[nodiscard]] double slope() const { return treads().rise / treads().going; }
  [[nodiscard]] double pitchLine(double along) const {
    return treads().rise + (along - treads().foot + treads().nosing) * slope();
  }
  // The height of a sloping band of a depth that is measured square to the pitch.
  [[nodiscard]] double height(double depth) const {
    return depth * std::hypot(treads().going, treads().rise) / treads().going;
  }
  [[nodiscard]] RailLine guardUnderside() const {
    return {railing().guardHeight - height(railing().guardDepth), railing().guardHeight - railing().guardDepth};
  }
  [[nodiscard]] RailLine bottomTop() const {
    return {railing().bottomHeight + height(railing().bottomDepth), railing().bottomHeight + railing().bottomDepth};
  }
  // Those that are drawn.
  [[nodiscard]] std::vector<RailLine> railLines() const {
    std::vector<RailLine> lines = {{railing().guardHeight, railing().guardHeight}, guardUnderside()};
    if (railing().bottomRail) {
      lines.push_back({railing().bottomHeight, railing().bottomHeight});
      lines.push_back(bottomTop());
    }
    return lines;
  }
  [[nodiscard]] Point on(const RailLine& rail, double along) const {
    return {along, pitchLine(along) + rail.abovePitch};
  }
  // Where the sloping part of a line meets its level part over a floor.
  [[nodiscard]] Point corner(const RailLine& rail, double floor) const {
    const double level = floor + rail.aboveFloor;
    return {treads().foot - treads().nosing + (level - rail.abovePitch - treads().rise) / slope(), level};
  }

  // ---- Newels -------------------------------------------------------------------------------------------------

  [[nodiscard]] int bays() const { return sheet_.stair.newelIndex(); }
  [[nodiscard]] Newel newelOnTread(int tread) const {
    return {treads().foot - treads().nosing + treads().going / 2.0 + tread * treads().going,
            (tread + 1) * treads().rise};
  }
  [[nodiscard]] Newel newel(int number) const { return newelOnTread(number * railing().treadsPerNewel); }
  [[nodiscard]] Newel lastBelowTop() const { return newel(std::max(bays() + 1, 0)); }
  [[nodiscard]] Newel topNewel() const { return newelOnTread(std::max(treads().treads - 2, 0)); }
  [[nodiscard]] double near(const Newel& newel) const { return newel.middle - railing().newelWidth / 2.0; }
  [[nodiscard]] double far(const Newel& newel) const { return newel.middle + railing().newelWidth / 2.0; }
  void halfNewel(const Newel& newel, double edge) const {
    const double top = newel.base + sheet_.stair.newelPostHeight();
    solid_.path({at(edge, newel.base), at(edge, top), at(newel.middle, top)});
  }
  void nearHalf(const Newel& newel) const { halfNewel(newel, near(newel)); }
  void farHalf(const Newel& newel) const { halfNewel(newel, far(newel)); }

  void newels() const {
    nearHalf(newel(0));
    farHalf(lastBelowTop());
    const Newel top = topNewel();
    if (top.middle <= lastBelowTop().middle) { return; }
    const double height = top.base + sheet_.stair.newelPostHeight();
    solid_.path({at(far(top), top.base), at(far(top), height), at(near(top), height), at(near(top), top.base)});
  }

  // ---- Bays between newels --------------------------------------------------------------------------------------

  void rails(const Newel& lower, const Newel& upper) const {
    for (const RailLine& rail : railLines()) { line(on(rail, far(lower)), on(rail, near(upper))); }
  }
  // Each baluster is cut at its own edges by the rails.
  void baluster(double middle) const {
    const double half = railing().balusterWidth / 2.0;
    for (const double edge : {middle - half, middle + half}) {
      line(on(bottomTop(), edge), on(guardUnderside(), edge));
    }
  }
  void balusters(int count, double first) {
    if (!railing().hasBalusters() || count < 1) { return; }
    baluster(first);
    repeat(count - 1, on(guardUnderside(), first), on(guardUnderside(), first + sheet_.stair.balusterSpacing()));
  }

  // The first bay with the halves of its newels, and its likes.
  void firstBays() {
    balusters(railing().balustersPerString, far(newel(0)) + sheet_.stair.balusterSpacing());
    rails(newel(0), newel(1));
    farHalf(newel(0));
    nearHalf(newel(1));
    repeat(bays(), {0.0, 0.0}, {newel(1).middle - newel(0).middle, newel(1).base - newel(0).base});
    repeated_.settle();
  }

  // As many balusters as there is room for.
  void lastBay() {
    const Newel lower = lastBelowTop();
    const Newel top = topNewel();
    if (top.middle <= lower.middle) { return; }
    const double spacing = sheet_.stair.balusterSpacing();
    balusters(static_cast<int>((top.middle - lower.middle) / spacing), far(lower) + spacing);
    repeated_.settle();
    rails(lower, top);
  }

  // ---- Ends -----------------------------------------------------------------------------------------------------

  void railEnds() const {
    const double end = treads().foot + sheet_.stair.length();
    for (const RailLine& rail : railLines()) {
      const Point foot = corner(rail, 0.0);
      const Point head = corner(rail, sheet_.stair.height());
      line({0.0, foot.y}, foot);
      line(foot, on(rail, near(newel(0))));
      line(on(rail, far(topNewel())), head);
      line(head, {end, head.y});
    }
  }

  void endBalusters() const {
    if (!railing().hasBalusters()) { return; }
    const double spacing = sheet_.stair.balusterSpacing();
    baluster(far(newel(0)) - spacing);
    const double half = railing().balusterWidth / 2.0;
    const double middle = far(topNewel()) + spacing;
    const double floor = sheet_.stair.height();
    for (const double edge : {middle - half, middle + half}) {
      line({edge, floor + bottomTop().aboveFloor}, {edge, floor + guardUnderside().aboveFloor});
    }
  }

  const StairSheet& sheet_;
  Point base_;
  Point run_;
  Point up_;
  DraftingPen solid_;
  RepeatLayer repeated_;
};

}  // namespace

void drawFlightSide(const StairSheet& sheet, const Flight& flight) { FlightSide(sheet, flight).draw(); }

}  // namespace ardenix::arch
