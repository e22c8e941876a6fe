#include "mech/bolt_drawer.h"

#include "mech/outline.h"

namespace ardenix::mech {

namespace {

constexpr FastenerTrade kBoltTrade = {.category = "BOLTS",
                                      .word = "Bolt",
                                      .planWord = "Bolt",
                                      .sideGroup = "_S",
                                      .planGroup = "_P",
                                      .clearsSelection = true};

}  // namespace

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

BoltDrawer::BoltDrawer(CCadWindow& view, const DefinitionStore& store)
    : RecordDrawer(boltFields(), view, store, kBoltTrade), dimensions_(boltDimensions(standardBolt(0.0, 0.0))) {}

FastenerReach BoltDrawer::reach() const {
  return {
      .length = dimensions_.length, .axisLength = dimensions_.length, .planRadius = dimensions_.head.halfAcrossFlats};
}

// ---- Side view ----------------------------------------------------------------------------------------------

void BoltDrawer::strokeSideView() {
  drawHead();
  drawShaft();
  drawThread();
  drawAxis();
}

void BoltDrawer::drawHead() const {
  const DraftingPen pen = headPen();
  drawHeadOutline(pen, dimensions_.head, position());
  drawChamferCurves(pen, dimensions_.head, position());
}

void BoltDrawer::drawShaft() const {
  const DraftingPen pen = shaftPen();
  const Point base = position();
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

void BoltDrawer::drawThread() const {
  const DraftingPen pen = shaftThreadPen();
  const Point base = position();
  const double minor = fastener().rootRadius(dimensions_.minorRadius, dimensions_.radius);
  const double end = -dimensions_.length;
  const double thread = -dimensions_.threadEnd;
  pen.line(base + Point{minor, end}, base + Point{minor, thread});
  pen.line(base + Point{-minor, thread}, base + Point{-minor, end});
}

void BoltDrawer::drawAxis() const {
  const Point base = position();
  const double overhang = dimensions_.overhang;
  centrePen().line(base + Point{0, -(dimensions_.length + overhang)},
                   base + Point{0, dimensions_.head.height + overhang});
}

// ---- Plan view ----------------------------------------------------------------------------------------------

void BoltDrawer::strokePlanView() {
  const Point centre = position();
  const Hexagon& head = dimensions_.head;
  const DraftingPen outline = headPen();
  outline.circle(centre, head.halfAcrossFlats);
  outline.path(hexagonOutline(head, centre));
  drawCentreCross(centrePen(), centre, head.halfAcrossCorners + kPlanOverhang, head.halfAcrossFlats + kPlanOverhang);
}

}  // namespace ardenix::mech
