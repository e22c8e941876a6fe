#include "mech/rivet_drawer.h"

#include <algorithm>
#include <cmath>

#include "mech/outline.h"

namespace ardenix::mech {

namespace {

constexpr FastenerTrade kRivetTrade = {
    .category = "RIVETS", .word = "Rivet", .planWord = "rivet", .sideGroup = "RS", .planGroup = "RP"};

// A head on a face of what is joined: heights count outwards, upwards for the left head and downwards for the
// right one.
class HeadStrokes {
 public:
  HeadStrokes(const DraftingPen& pen, const RivetHead& head, Point middle, double outwards, double shankDiameter)
      : pen_(pen), head_(head), middle_(middle), outwards_(outwards), shankHalf_(shankDiameter / 2.0) {}

  void draw() const {
    switch (head_.type) {
      case RivetHeadType::kSnap:
      case RivetHeadType::kMushroom: return drawCrowned();
      case RivetHeadType::kPan: return drawTapered(half() - head_.height * std::sin(radians(30.0)) / 2.0);
      case RivetHeadType::kFlat: return drawTapered(half());
      case RivetHeadType::kCountersunk: return drawCountersunk();
    }
  }

 private:
  [[nodiscard]] double half() const { return head_.diameter / 2.0; }
  [[nodiscard]] Point at(double aside, double height) const { return middle_ + Point{aside, outwards_ * height}; }

  void drawCrowned() const {
    const double start = outwards_ * half();  // counter-clockwise over the apex on either side
    drawCrown(pen_, at(start, 0), at(0, head_.height), at(-start, 0));
    pen_.line(at(-half(), 0), at(half(), 0));
  }

  void drawTapered(double topHalf) const {
    const double top = head_.height;
    pen_.line(at(-half(), 0), at(half(), 0));
    pen_.line(at(-topHalf, top), at(topHalf, top));
    pen_.line(at(-half(), 0), at(-topHalf, top));
    pen_.line(at(half(), 0), at(topHalf, top));
  }

  void drawCountersunk() const {
    const double inner = -head_.height;
    pen_.line(at(-half(), 0), at(half(), 0));
    pen_.line(at(-half(), 0), at(-shankHalf_, inner));
    pen_.line(at(half(), 0), at(shankHalf_, inner));
    pen_.line(at(-shankHalf_, inner), at(shankHalf_, inner));
  }

  const DraftingPen& pen_;
  RivetHead head_;
  Point middle_;
  double outwards_;  // 1 or -1
  double shankHalf_;
};

}  // namespace

RivetDrawer::RivetDrawer(CCadWindow& view, const DefinitionStore& store)
    : RecordDrawer(rivetFields(), view, store, kRivetTrade) {}

FastenerReach RivetDrawer::reach() const {
  return {.length = rivet_.length, .axisLength = rivet_.length, .planRadius = widestHead() / 2.0};
}

double RivetDrawer::widestHead() const { return std::max(rivet_.leftDiameter, rivet_.rightDiameter); }

void RivetDrawer::strokeSideView() {
  const Point base = position();
  const double radius = rivet_.diameter / 2.0;
  const DraftingPen shank = shaftPen();
  for (const double side : {-radius, radius}) {
    shank.line(base + Point{side, shankTop()}, base + Point{side, shankBottom()});
  }
  const DraftingPen pen = headPen();
  HeadStrokes(pen, rivet_.left(), base, 1.0, rivet_.diameter).draw();
  HeadStrokes(pen, rivet_.right(), base + Point{0, -rivet_.length}, -1.0, rivet_.diameter).draw();
  const double overhang = 0.2 * rivet_.diameter;
  centrePen().line(base + Point{0, shankBottom() - (overhang + rivet_.rightDiameter)},
                   base + Point{0, shankTop() + overhang + rivet_.leftDiameter});
}

void RivetDrawer::strokePlanView() {
  const double radius = widestHead() / 2.0;
  headPen().circle(position(), radius);
  const LineStyle& hidden = fastener().hidden;
  pen({.pen = fastener().headStyle().pen, .linetype = hidden.linetype, .width = hidden.width})
      .circle(position(), rivet_.diameter / 2.0);
  drawCentreCross(centrePen(), position(), radius + kPlanOverhang, radius + kPlanOverhang);
}

}  // namespace ardenix::mech
