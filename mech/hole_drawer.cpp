#include "mech/hole_drawer.h"

#include <algorithm>
#include <cmath>

#include "mech/outline.h"

namespace ardenix::mech {

namespace {

constexpr FastenerTrade kHoleTrade = {.category = "HOLES",
                                      .word = "Hole",
                                      .planWord = "Hole",
                                      .sideGroup = "HS",
                                      .planGroup = "HP",
                                      .clearsSelection = true,
                                      .returnsToRoot = false};

}  // namespace

HoleDimensions holeDimensions(const HoleRecord& record) {
  HoleDimensions hole;
  hole.type = record.type;
  hole.blind = record.range == HoleRange::kBlind;
  hole.radius = record.diameter / 2.0;
  hole.threadRadius = record.type == HoleType::kTapped ? record.threadDiameter / 2.0 : 0.0;
  hole.mouthRadius = std::max(hole.radius, hole.threadRadius);
  hole.length = record.length;
  hole.threadLength = record.threadLength;
  hole.sunk = std::fabs(record.countersinkDepth) > 1e-12;
  hole.sinkDepth = record.countersinkDepth;
  hole.counterbored = record.counterboreDiameter != 0.0;
  hole.sinkRadius = hole.counterbored ? record.counterboreDiameter / 2.0 : hole.mouthRadius + record.countersinkDepth;
  hole.bodyTop = hole.sunk ? hole.sinkDepth : 0.0;
  hole.bottom = record.length;
  hole.tip = hole.blind ? hole.radius * std::tan(radians(30.0)) : 0.0;
  hole.threadEnds = hole.blind || !nearlyEqual(record.length, record.threadLength + record.countersinkDepth);
  return hole;
}

HoleDrawer::HoleDrawer(CCadWindow& view, const DefinitionStore& store)
    : RecordDrawer(holeFields(), view, store, kHoleTrade), dimensions_(holeDimensions({})) {}

FastenerReach HoleDrawer::reach() const {
  return {.length = dimensions_.length,
          .axisLength = dimensions_.bottom - dimensions_.bodyTop + dimensions_.tip,
          .planRadius = dimensions_.radius};
}

// ---- Side view ----------------------------------------------------------------------------------------------

void HoleDrawer::strokeSideView() {
  const DraftingPen pen = shaftPen();
  if (dimensions_.sunk) { dimensions_.counterbored ? drawCounterbore(pen) : drawCountersink(pen); }
  if (dimensions_.type == HoleType::kTapped) { drawThread(); }
  drawBody(pen);
  drawAxis();
}

void HoleDrawer::drawCountersink(const DraftingPen& pen) const {
  const Point base = position();
  const double inner = dimensions_.mouthRadius;
  const double outer = dimensions_.sinkRadius;
  const double bottom = -dimensions_.sinkDepth;
  pen.line(base + Point{-inner, bottom}, base + Point{-outer, 0});
  pen.line(base + Point{inner, bottom}, base + Point{outer, 0});
  pen.line(base + Point{-inner, bottom}, base + Point{inner, bottom});
}

void HoleDrawer::drawCounterbore(const DraftingPen& pen) const {
  const Point base = position();
  const double radius = dimensions_.sinkRadius;
  const double bottom = -dimensions_.sinkDepth;
  pen.line(base + Point{-radius, bottom}, base + Point{radius, bottom});
  pen.line(base + Point{-radius, bottom}, base + Point{-radius, 0});
  pen.line(base + Point{radius, bottom}, base + Point{radius, 0});
}

double HoleDrawer::drawnThreadRadius() const {
  return fastener().rootRadius(dimensions_.threadRadius, dimensions_.radius);
}

void HoleDrawer::drawThread() const {
  const DraftingPen pen = shaftThreadPen();
  const Point base = position();
  const double radius = drawnThreadRadius();
  const double end = -dimensions_.threadLength;
  pen.line(base + Point{-radius, 0}, base + Point{-radius, end});
  pen.line(base + Point{radius, 0}, base + Point{radius, end});
  if (dimensions_.threadEnds) { pen.line(base + Point{-radius, end}, base + Point{radius, end}); }
}

void HoleDrawer::drawBody(const DraftingPen& pen) const {
  const Point base = position();
  const double radius = dimensions_.radius;
  const double top = -dimensions_.bodyTop;
  const double bottom = -dimensions_.bottom;
  pen.line(base + Point{-radius, top}, base + Point{-radius, bottom});
  pen.line(base + Point{radius, top}, base + Point{radius, bottom});
  if (!dimensions_.blind) { return; }
  const Point point = base + Point{0, bottom - dimensions_.tip};
  pen.line(base + Point{-radius, bottom}, point);
  pen.line(base + Point{radius, bottom}, point);
}

void HoleDrawer::drawAxis() const {
  const Point base = position();
  const double overhang = dimensions_.radius;
  centrePen().line(base + Point{0, -(dimensions_.bottom + dimensions_.tip + overhang)}, base + Point{0, overhang});
}

// ---- Plan view ----------------------------------------------------------------------------------------------

void HoleDrawer::strokePlanView() {
  const DraftingPen pen = headPen();
  pen.circle(position(), dimensions_.radius);
  if (dimensions_.sunk) { pen.circle(position(), dimensions_.sinkRadius); }
  if (dimensions_.type == HoleType::kTapped) { drawThreadArc(headThreadPen(), position(), drawnThreadRadius()); }
  dimensions_.type == HoleType::kDowel ? fillDowel() : drawPlanCentreLines();
}

void HoleDrawer::drawPlanCentreLines() const {
  double reach = 1.2 * dimensions_.radius;
  if (dimensions_.sunk) { reach = 2.0 * 1.2 * dimensions_.sinkRadius; }
  if (dimensions_.type == HoleType::kTapped) { reach = 1.2 * drawnThreadRadius(); }
  drawCentreCross(centrePen(), position(), reach, reach);
}

// Strokes so close that they blacken the upper left and the lower right quarter, the sign of a dowel pin.
void HoleDrawer::fillDowel() const {
  constexpr int kStrokes = 40;
  const DraftingPen pen = this->pen({.pen = fastener().headStyle().pen, .linetype = 1, .width = 0.0});
  const Point centre = position();
  const double radius = dimensions_.radius;
  for (int i = 0; i < kStrokes; ++i) {
    const double aside = i * radius / kStrokes;
    const double half = halfChord(radius, aside);
    pen.line(centre + Point{0, aside}, centre + Point{-half, aside});
    pen.line(centre + Point{0, -aside}, centre + Point{half, -aside});
    pen.line(centre + Point{-aside, 0}, centre + Point{-aside, half});
    pen.line(centre + Point{aside, 0}, centre + Point{aside, -half});
  }
}

}  // namespace ardenix::mech
