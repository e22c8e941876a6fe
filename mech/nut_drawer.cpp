#include "mech/nut_drawer.h"

#include <algorithm>
#include <cmath>

#include "frame/drafting/macro_texts.h"
#include "mech/outline.h"

namespace ardenix::mech {

namespace {

constexpr FastenerTrade kNutTrade = {.category = "NUTS",
                                     .word = "Nut",
                                     .planWord = "Nut",
                                     .sideGroup = "_S",
                                     .planGroup = "_P",
                                     .turnsToPoint = true,
                                     .cutByMacros = true};

}  // namespace

NutDimensions nutDimensions(const NutRecord& record) {
  NutDimensions nut;
  nut.body = hexagon(record.headSize, record.headHeight);
  nut.shape = record.shape;
  nut.slotted = record.type == NutType::kSlotted;
  nut.threadRadius = record.diameter / 2.0;
  nut.minorRadius = record.minorDiameter / 2.0;
  nut.washer = record.washerDiameter != 0.0 && record.washerThickness != 0.0;
  nut.washerRadius = record.washerDiameter / 2.0;
  nut.foot = nut.washer ? record.washerThickness : 0.0;
  nut.slotWidth = record.slotWidth;
  nut.slotDepth = record.slotDepth;
  return nut;
}

NutDrawer::NutDrawer(CCadWindow& view, const DefinitionStore& store)
    : RecordDrawer(nutFields(), view, store, kNutTrade), dimensions_(nutDimensions({})) {}

FastenerReach NutDrawer::reach() const {
  const Hexagon& body = dimensions_.body;
  return {.length = body.height, .axisLength = body.height, .planRadius = body.halfAcrossFlats};
}

// ---- Side view ----------------------------------------------------------------------------------------------

void NutDrawer::strokeSideView() {
  const DraftingPen pen = shaftPen();
  if (dimensions_.washer) { drawWasher(pen); }
  const Point base = position() + Point{0, dimensions_.foot};
  switch (dimensions_.shape) {
    case NutShape::kRounded: drawRoundedBody(pen, base); break;
    case NutShape::kFlatBase: drawFlatBasedBody(pen, base); break;
    case NutShape::kFlat: drawFlatBody(pen, base); break;
  }
  if (dimensions_.slotted) { cutSlots(pen, base); }
  const double height = dimensions_.body.height;
  centrePen().line(position() + Point{0, -0.5 * height}, base + Point{0, 1.5 * height});
}

void NutDrawer::drawWasher(const DraftingPen& pen) const {
  const double radius = dimensions_.washerRadius;
  const Point base = position();
  const double top = dimensions_.foot;
  pen.path({base + Point{-radius, 0}, base + Point{radius, 0}, base + Point{radius, top}, base + Point{-radius, top},
            base + Point{-radius, 0}});
}

void NutDrawer::drawRoundedBody(const DraftingPen& pen, Point base) const {
  const Hexagon& body = dimensions_.body;
  const double s = body.halfAcrossFlats;
  const double w = body.halfAcrossCorners;
  const double t = body.halfSide;
  const double low = body.height - body.cornerHeight;
  const double high = body.cornerHeight;
  drawChamferCurves(pen, body, base);
  drawBottomChamferCurves(pen, body, base);
  for (const double edge : {-w, w, -t, t}) { pen.line(base + Point{edge, low}, base + Point{edge, high}); }
  pen.path({base + Point{-w, low}, base + Point{-s, 0}, base + Point{s, 0}, base + Point{w, low}});
  pen.path(
      {base + Point{-w, high}, base + Point{-s, body.height}, base + Point{s, body.height}, base + Point{w, high}});
}

void NutDrawer::drawFlatBasedBody(const DraftingPen& pen, Point base) const {
  const Hexagon& body = dimensions_.body;
  drawHeadOutline(pen, body, base);
  drawChamferCurves(pen, body, base);
}

void NutDrawer::drawFlatBody(const DraftingPen& pen, Point base) const {
  const Hexagon& body = dimensions_.body;
  const double w = body.halfAcrossCorners;
  const double t = body.halfSide;
  const double top = body.height;
  pen.path({base + Point{-w, 0}, base + Point{-w, top}, base + Point{w, top}, base + Point{w, 0}, base + Point{-w, 0}});
  for (const double edge : {-t, t}) { pen.line(base + Point{edge, 0}, base + Point{edge, top}); }
}

// Three of the six slots are seen, the outer two from the side, turned by 60 degrees.
void NutDrawer::cutSlots(const DraftingPen& pen, Point base) const {
  const double aside = 0.75 * dimensions_.body.halfAcrossCorners;
  const double width = dimensions_.slotWidth;
  cutSlot(pen, base, width);
  cutSlot(pen, base + Point{-aside, 0}, width * std::cos(radians(60.0)));
  cutSlot(pen, base + Point{aside, 0}, width * std::cos(radians(60.0)));
}

void NutDrawer::cutSlot(const DraftingPen& pen, Point base, double width) const {
  const double half = width / 2.0;
  const double top = dimensions_.body.height;
  const double bottom = top - dimensions_.slotDepth;
  view().gsExecuteMacro(macroText::cutOut(base + Point{half, 1.1 * top}, base + Point{-half, bottom}));
  pen.path(
      {base + Point{half, top}, base + Point{half, bottom}, base + Point{-half, bottom}, base + Point{-half, top}});
}

// ---- Plan view ----------------------------------------------------------------------------------------------

void NutDrawer::strokePlanView() {
  const Point centre = position();
  const Hexagon& body = dimensions_.body;
  const double washer = dimensions_.washerRadius;
  const DraftingPen pen = headPen();
  if (dimensions_.shape != NutShape::kFlat) { pen.circle(centre, body.halfAcrossFlats); }
  pen.circle(centre, dimensions_.minorRadius);
  if (dimensions_.washer) { pen.circle(centre, washer); }
  pen.path(hexagonOutline(body, centre));
  if (dimensions_.slotted) { drawSlotsOfPlan(pen); }
  drawThreadArc(headThreadPen(), centre, fastener().rootRadius(dimensions_.threadRadius, dimensions_.minorRadius));
  drawCentreCross(centrePen(), centre, std::max(washer, body.halfAcrossCorners) + kPlanOverhang,
                  std::max(washer, body.halfAcrossFlats) + kPlanOverhang);
}

// One through the middle of each flat, from the bore outwards.
void NutDrawer::drawSlotsOfPlan(const DraftingPen& pen) const {
  const double half = dimensions_.slotWidth / 2.0;
  const double inner = halfChord(dimensions_.minorRadius, half);
  const double outer = dimensions_.body.halfAcrossFlats;
  for (int slot = 0; slot < 6; ++slot) {
    const double axis = radians(30.0 + 60.0 * slot);
    const auto at = [&](double along, double aside) {
      return position() +
             Point{along * std::cos(axis) - aside * std::sin(axis), along * std::sin(axis) + aside * std::cos(axis)};
    };
    pen.line(at(inner, half), at(outer, half));
    pen.line(at(inner, -half), at(outer, -half));
  }
}

}  // namespace ardenix::mech
