#include "mech/hex_bolt.h"

#include "mech/drafting_pen.h"

namespace ardenix {

namespace {

// Centre lines of a plan view reach so far beyond the outline, in drawing units.
constexpr double kPlanOverhang = 5.0;

}  // namespace

BoltRecord boltOf(std::span<const double> fields) {
  return {.headSize = fields[kHeadSize],
          .headHeight = fields[kHeadHeight],
          .diameter = fields[kDiameter],
          .length = fields[kLength],
          .threadLength = fields[kThreadLength],
          .minorDiameter = fields[kMinorDiameter]};
}

BoltRecord standardBolt(double diameter, double length) {
  BoltRecord bolt{.headSize = 1.56 * diameter,
                  .headHeight = 0.66 * diameter,
                  .diameter = diameter,
                  .length = length,
                  .threadLength = 2.0 * diameter + 6.0,
                  .minorDiameter = 0.8 * diameter};
  if (bolt.threadLength >= length) { bolt.threadLength = length - 5.0; }
  if (length == 0.0) {
    bolt.threadLength = 0.0;
    bolt.minorDiameter = diameter;  // no shaft, no end chamfer
  }
  return bolt;
}

BoltDimensions boltDimensions(const BoltRecord& record) {
  BoltDimensions bolt;
  bolt.head = hexagon(record.headSize, record.headHeight);
  bolt.radius = record.diameter / 2.0;
  bolt.minorRadius = record.minorDiameter / 2.0;
  bolt.length = record.length;
  bolt.chamferStart = record.length - (bolt.radius - bolt.minorRadius);
  bolt.threadEnd = record.length - record.threadLength;
  bolt.overhang = 0.2 * record.diameter;
  return bolt;
}

HexBolt::HexBolt(CCadWindow& view, const DefinitionStore& store)
    : view_(view),
      fastener_(makeFastener(store, "BOLTS")),
      placement_(view, fastener_),
      dimensions_(boltDimensions(standardBolt(0.0, 0.0))) {}

// ---- Side view ----------------------------------------------------------------------------------------------

bool HexBolt::drawSideView() {
  const auto placement = placement_.askSideView("Bolt");
  if (!placement) { return false; }
  placement_.startGroup(fastener_.name + "_S");
  drawHead();
  drawShaft();
  drawThread();
  drawAxis();
  placement_.finishSideView(*placement, fastener_.position + Point{0, -dimensions_.length}, dimensions_.length);
  return true;
}

void HexBolt::drawHead() {
  const DraftingPen pen(view_, fastener_.headStyle());
  const Point base = fastener_.position;
  const Hexagon& head = dimensions_.head;
  const double s = head.halfAcrossFlats;
  const double w = head.halfAcrossCorners;
  const double t = head.halfSide;
  const double corner = head.cornerHeight;
  const double top = head.height;
  pen.path({base, base + Point{-w, 0}, base + Point{-w, corner}, base + Point{-s, top}, base + Point{0, top},
            base + Point{s, top}, base + Point{w, corner}, base + Point{w, 0}, base});
  pen.line(base + Point{-t, 0}, base + Point{-t, corner});
  pen.line(base + Point{t, 0}, base + Point{t, corner});
  drawChamferCurves(pen, head, base);
}

void HexBolt::drawShaft() {
  const DraftingPen pen(view_, fastener_.shaftStyle());
  const Point base = fastener_.position;
  const double r = dimensions_.radius;
  const double minor = dimensions_.minorRadius;
  const double chamfer = -dimensions_.chamferStart;
  const double end = -dimensions_.length;
  const double thread = -dimensions_.threadEnd;
  pen.path({base + Point{r, 0}, base + Point{r, chamfer}, base + Point{minor, end}, base + Point{-minor, end},
            base + Point{-r, chamfer}, base + Point{-r, 0}});
  pen.line(base + Point{r, chamfer}, base + Point{0.3 * r, chamfer});
  pen.line(base + Point{-0.3 * r, chamfer}, base + Point{-r, chamfer});
  pen.line(base + Point{r, thread}, base + Point{-r, thread});
}

void HexBolt::drawThread() {
  const DraftingPen pen(view_, fastener_.threadStyle());
  const Point base = fastener_.position;
  const double minor = dimensions_.minorRadius;
  const double end = -dimensions_.length;
  const double thread = -dimensions_.threadEnd;
  pen.line(base + Point{minor, end}, base + Point{minor, thread});
  pen.line(base + Point{-minor, thread}, base + Point{-minor, end});
}

void HexBolt::drawAxis() {
  const Point base = fastener_.position;
  const double overhang = dimensions_.overhang;
  DraftingPen(view_, fastener_.centre)
      .line(base + Point{0, -(dimensions_.length + overhang)}, base + Point{0, dimensions_.head.height + overhang});
}

// ---- Plan view ----------------------------------------------------------------------------------------------

bool HexBolt::drawPlanView() {
  const auto rotationPoint = placement_.askPlanView("Bolt");
  if (!rotationPoint) { return false; }
  placement_.startGroup(fastener_.name + "_P");
  const Point centre = fastener_.position;
  const Hexagon& head = dimensions_.head;
  const DraftingPen outline(view_, fastener_.headStyle());
  outline.circle(centre, head.halfAcrossFlats);
  outline.path(hexagonOutline(head, centre));
  const DraftingPen axes(view_, fastener_.centre);
  const double across = head.halfAcrossCorners + kPlanOverhang;
  const double up = head.halfAcrossFlats + kPlanOverhang;
  axes.line(centre + Point{-across, 0}, centre + Point{across, 0});
  axes.line(centre + Point{0, -up}, centre + Point{0, up});
  placement_.finishPlanView(centre + Point{0, -head.halfAcrossFlats}, *rotationPoint);
  return true;
}

}  // namespace ardenix
