#include <initializer_list>

#include "arch/repeat_layer.h"
#include "arch/stair_drawing.h"

namespace ardenix::arch {

namespace {

// A flight on plan. Places are given along its run from the base, and across it from its left edge.
class FlightPlan {
 public:
  FlightPlan(const StairSheet& sheet, const Flight& flight)
      : sheet_(sheet), flight_(flight), solid_(sheet.solid()), repeated_(sheet.view) {}

  void draw() {
    steps();
    newels();
    outline();
    rails();
    walkLine();
    repeated_.settle();
  }

 private:
  [[nodiscard]] const TreadRecord& treads() const { return sheet_.stair.treads; }
  [[nodiscard]] const RailingRecord& railing() const { return sheet_.stair.railing; }
  [[nodiscard]] double firstNosing() const { return treads().foot - treads().nosing; }
  [[nodiscard]] double top() const { return sheet_.stair.length() + treads().foot; }

  [[nodiscard]] Point at(double along, double across) const {
    const Point run = quarterWay(flight_.direction);
    return flight_.base + run * along - quarterTurned(run) * across;
  }
  void acrossAt(const DraftingPen& pen, double along, Strip strip) const {
    pen.line(at(along, strip.from), at(along, strip.to));
  }

  // The edge of each tread, and behind it the riser below, which the nosing covers.
  void steps() {
    const std::vector<Strip> strips = stripsBesideRails(sheet_.stair);
    for (const Strip strip : strips) { acrossAt(solid_, firstNosing(), strip); }
    for (const Strip strip : strips) { acrossAt(sheet_.hidden(), treads().foot, strip); }
    repeated_.multiply(treads().treads - 1, at(firstNosing(), 0.0), at(firstNosing() + treads().going, 0.0));
  }

  // From the outer edges of the flight to the rails.
  [[nodiscard]] std::vector<Strip> newelStrips() const {
    std::vector<Strip> strips;
    if (railing().left) { strips.push_back({0.0, railing().newelWidth}); }
    if (railing().right) { strips.push_back({treads().width - railing().newelWidth, treads().width}); }
    return strips;
  }
  void newelAt(double near, double far) const {
    for (const Strip strip : newelStrips()) {
      acrossAt(solid_, near, strip);
      acrossAt(solid_, far, strip);
    }
  }

  void newels() {
    if (!railing().hasRail()) { return; }
    const double middleOfTread = firstNosing() + treads().going / 2.0;
    const double half = railing().newelWidth / 2.0;
    newelAt(middleOfTread - half, middleOfTread + half);
    repeated_.multiply(sheet_.stair.newelIndex() + 1, at(middleOfTread - half, 0.0),
                       at(middleOfTread - half + railing().treadsPerNewel * treads().going, 0.0));
  }

  void outline() const {
    const double width = treads().width;
    solid_.line(at(0.0, 0.0), at(top(), 0.0));
    solid_.line(at(0.0, 0.0), at(0.0, width));
    solid_.line(at(0.0, width), at(top(), width));
    solid_.line(at(top(), 0.0), at(top(), width));
  }

  void rails() const {
    const double width = treads().width;
    const double outer = railing().newelWidth;
    const double inner = outer + railing().railWidth;
    if (railing().left) { railAt({outer, inner}); }
    if (railing().right) { railAt({width - inner, width - outer}); }
    if (!railing().hasRail()) { return; }
    const double middleOfTread = top() - treads().nosing - 1.5 * treads().going;
    newelAt(middleOfTread + railing().newelWidth / 2.0, middleOfTread - railing().newelWidth / 2.0);
  }
  void railAt(Strip rail) const {
    for (const double across : {rail.from, rail.to}) { solid_.line(at(top(), across), at(0.0, across)); }
  }

  void walkLine() const {
    const double middle = treads().width / 2.0;
    sheet_.arrow().arrow(at(firstNosing(), middle), at(top() - treads().going - treads().nosing, middle),
                         sheet_.settings.arrowHead());
  }

  const StairSheet& sheet_;
  const Flight& flight_;
  DraftingPen solid_;
  RepeatLayer repeated_;
};

}  // namespace

void drawFlightPlan(const StairSheet& sheet, const Flight& flight) { FlightPlan(sheet, flight).draw(); }

}  // namespace ardenix::arch
