#include "mech/flange_drawer.h"

#include <cmath>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/scratch_layer.h"
#include "mech/outline.h"

namespace ardenix::mech {

namespace {

constexpr PlacedTrade kFlangeTrade = {.category = "FLANGES",
                                      .prefix = "FL",
                                      .positionPrompt = "Enter center point of Flange",
                                      .directionPrompt = "Enter a point on the Flange center line for rotation",
                                      .scratchLayer = scratchNames::kMechanical};

constexpr double kCentreLineReach = 0.6;  // diameters of the hole that they cross

}  // namespace

FlangeShape flangeShape(const FlangeRecord& flange) {
  if (flange.holes < 2) { return FlangeShape::kNone; }
  if (flange.holes == 2) { return FlangeShape::kOval; }
  return flange.holes == 3 ? FlangeShape::kTriangular : FlangeShape::kRound;
}

FlangeDrawer::FlangeDrawer(CCadWindow& view, const DefinitionStore& store)
    : RecordDrawer(flangeFields(), view, store, kFlangeTrade) {}

Point FlangeDrawer::reference() const { return position() + Point{pitchRadius(), 0}; }

void FlangeDrawer::stroke() {
  if (flange_.bore > 0.0) { outlinePen().circle(position(), flange_.bore / 2.0, CircleStart::kRight); }
  strokeShape();
  strokeCentreLines();
}

void FlangeDrawer::strokeShape() {
  switch (flangeShape(flange_)) {
    case FlangeShape::kNone: return;
    case FlangeShape::kOval: return strokeOval();
    case FlangeShape::kTriangular: return strokeTriangle();
    case FlangeShape::kRound: return strokeRound();
  }
}

void FlangeDrawer::strokeHole(Point centre) const {
  outlinePen().circle(centre, flange_.boltHole / 2.0, CircleStart::kRight);
}

void FlangeDrawer::strokeCentreLines() const {
  send(macroText::beginGroup(group()));
  const double reach = kCentreLineReach * flange_.bore;
  centrePen().line(position() + Point{0, -reach}, position() + Point{0, reach});
  centrePen().line(position() + Point{-reach, 0}, position() + Point{reach, 0});
  if (drawsExtra(kPitchCircle)) { centrePen().circle(position(), pitchRadius()); }
}

// ---- Round: the first hole stands above the centre ----------------------------------------------------------

void FlangeDrawer::strokeRound() const {
  const Point hole = position() + Point{0, pitchRadius()};
  const double reach = kCentreLineReach * flange_.boltHole;
  outlinePen().circle(position(), flange_.outside / 2.0, CircleStart::kRight);
  send(macroText::kSelectNewPlain);
  strokeHole(hole);
  centrePen().line(hole + Point{0, -reach}, hole + Point{0, reach});
  centrePen().line(hole + Point{-reach, 0}, hole + Point{reach, 0});
  send(macroText::repeatPolar(flange_.holes - 1, position(), 360.0 / flange_.holes));
  send(macroText::kSelectNewPlainEnd);
}

// ---- Oval: a boss between two lobes, its upper half mirrored ------------------------------------------------

void FlangeDrawer::strokeOval() const {
  const Point centre = position();
  const Point left = centre - Point{pitchRadius(), 0};
  const Point right = centre + Point{pitchRadius(), 0};
  strokeHole(left);
  strokeHole(right);

  const double lobe = flange_.corner / 2.0;
  const double boss = flange_.outside / 2.0;
  const double slope = std::asin((boss - lobe) / pitchRadius());  // of the tangents
  const Point leftwards{-std::sin(slope), std::cos(slope)};
  const Point rightwards{std::sin(slope), std::cos(slope)};
  const DraftingPen pen = outlinePen();
  send(macroText::kSelectNewPlain);
  pen.arc(left - Point{lobe, 0}, left, left + lobe * leftwards, ArcSense::kClockwise);
  pen.arc(centre + boss * leftwards, centre, centre + boss * rightwards, ArcSense::kClockwise);
  pen.arc(right + Point{lobe, 0}, right, right + lobe * rightwards, ArcSense::kCounterClockwise);
  const double reach = kCentreLineReach * flange_.boltHole;
  for (const Point hole : {left, right}) {
    centrePen().line(hole + Point{0, -reach}, hole + Point{0, reach});
    centrePen().line(hole + Point{-reach, 0}, hole + Point{reach, 0});
  }
  pen.line(left + lobe * leftwards, centre + boss * leftwards);
  pen.line(centre + boss * rightwards, right + lobe * rightwards);
  send(macroText::mirrorUpDown(centre));
  send(macroText::kSelectNewPlainEnd);
}

// ---- Triangular: corners rounded about the holes, one of them on the left -----------------------------------

void FlangeDrawer::strokeTriangle() {
  const Point centre = position();
  const double first = radians(30.0);
  const Point hole = atBearing(centre, first, pitchRadius());
  const double toCorner = pitchRadius() + flange_.corner;
  const Point a = atBearing(centre, first, toCorner);
  const Point b = atBearing(centre, radians(150.0), toCorner);
  const Point c = atBearing(centre, radians(270.0), toCorner);
  const DraftingPen pen = outlinePen();
  pen.line(a, b);
  pen.line(a, c);
  pen.line(b, c);
  roundCorner(a, c, b);
  roundCorner(c, b, a);
  roundCorner(b, a, c);

  const double reach = kCentreLineReach * flange_.boltHole;
  send(macroText::kSelectNewPlain);
  strokeHole(hole);
  for (const double along : {first, radians(120.0)}) {
    centrePen().line(atBearing(hole, along, -reach), atBearing(hole, along, reach));
  }
  send(macroText::repeatByThirds(centre));
  send(macroText::kSelectNewPlainEnd);
}

// The sides are named by points beside their middles, on the inner side.
void FlangeDrawer::roundCorner(Point corner, Point before, Point after) {
  constexpr double kInwards = 0.01;
  const auto onSide = [&](Point other) {
    const Point halfway = middle(corner, other);
    return atBearing(halfway, bearing(halfway, position()), kInwards);
  };
  if (!send(macroText::filletSides(flange_.corner / 2.0, onSide(before), onSide(after)))) {
    notice("The corners of the flange could not be rounded; they stay sharp.");
  }
}

}  // namespace ardenix::mech
