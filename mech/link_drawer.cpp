#include "mech/link_drawer.h"

#include <cmath>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/scratch_layer.h"
#include "mech/outline.h"

namespace ardenix::mech {

namespace {

constexpr PlacedTrade kLinkTrade = {.category = "LINKS",
                                    .prefix = "LK",
                                    .positionPrompt = "Enter left centre point of Link",
                                    .directionPrompt = "Enter a point on the Link center line for rotation",
                                    .scratchLayer = scratchNames::kMechanical};

// Shoulders that overlap leave no line between them.
std::optional<LinkOutline> taper(const LinkRecord& link) {
  const double left = link.leftShoulder / 2.0;
  const double right = link.rightShoulder / 2.0;
  const LinkOutline outline{{halfChord(link.leftBoss / 2.0, left), left},
                            {link.distance - halfChord(link.rightBoss / 2.0, right), right},
                            {}};
  if (outline.left.x > outline.right.x) { return std::nullopt; }
  return outline;
}

// The curve's centre lies where the circles that keep its radius from the bosses cross, above the centres.
std::optional<LinkOutline> curved(const LinkRecord& link) {
  const double leftRadius = link.leftBoss / 2.0 + link.radius;
  const double rightRadius = link.rightBoss / 2.0 + link.radius;
  const double apart = link.distance;
  if (apart > leftRadius + rightRadius || apart < std::fabs(leftRadius - rightRadius)) { return std::nullopt; }
  const double along = (apart * apart + leftRadius * leftRadius - rightRadius * rightRadius) / (2.0 * apart);
  const Point centre{along, halfChord(leftRadius, along)};
  const auto towards = [&](Point boss) { return atBearing(centre, bearing(centre, boss), link.radius); };
  return LinkOutline{towards({}), towards({apart, 0}), centre};
}

// A line that touches both bosses.
std::optional<LinkOutline> flush(const LinkRecord& link) {
  const double rise = (link.rightBoss - link.leftBoss) / 2.0;
  if (std::fabs(rise) > link.distance) { return std::nullopt; }
  const double slope = std::asin(rise / link.distance);
  const Point across{-std::sin(slope), std::cos(slope)};
  return LinkOutline{link.leftBoss / 2.0 * across, Point{link.distance, 0} + link.rightBoss / 2.0 * across, {}};
}

}  // namespace

std::optional<LinkOutline> linkOutline(const LinkRecord& link) {
  if (!(link.leftBoss > 0.0 && link.rightBoss > 0.0 && link.distance > 0.0)) { return std::nullopt; }
  switch (link.type) {
    case LinkType::kTaper: return taper(link);
    case LinkType::kFillet: return curved(link);
    case LinkType::kFlush: return flush(link);
  }
  return std::nullopt;
}

LinkDrawer::LinkDrawer(CCadWindow& view, const DefinitionStore& store)
    : RecordDrawer(linkFields(), view, store, kLinkTrade) {}

void LinkDrawer::measure(const LinkRecord& link) {
  link_ = link;
  outline_ = linkOutline(link);
}

void LinkDrawer::stroke() {
  strokeHoles();
  send(macroText::kSelectNewPlain);
  if (!outline_) { return; }
  strokeBosses();
  strokeJoint();
}

void LinkDrawer::strokeHoles() const {
  const DraftingPen pen = outlinePen();
  if (link_.leftHole > 0.0) { pen.circle(position(), link_.leftHole / 2.0, CircleStart::kRight); }
  if (link_.rightHole > 0.0) { pen.circle(rightCentre(), link_.rightHole / 2.0, CircleStart::kRight); }
}

// The upper halves, from the far ends to the joint.
void LinkDrawer::strokeBosses() const {
  const DraftingPen pen = outlinePen();
  pen.arc(position() - Point{link_.leftBoss / 2.0, 0}, position(), position() + outline_->left, ArcSense::kClockwise);
  pen.arc(rightCentre() + Point{link_.rightBoss / 2.0, 0}, rightCentre(), position() + outline_->right,
          ArcSense::kCounterClockwise);
}

void LinkDrawer::strokeJoint() {
  const DraftingPen pen = outlinePen();
  const Point left = position() + outline_->left;
  const Point right = position() + outline_->right;
  switch (link_.type) {
    case LinkType::kTaper: return strokeTaper();
    case LinkType::kFillet:
      pen.arc(left, position() + outline_->curve, right, ArcSense::kCounterClockwise);
      send(macroText::plain(macroText::mirrorUpDown(position())));
      return;
    case LinkType::kFlush:
      pen.line(left, right);
      send(macroText::mirrorUpDown(position()));
      return;
  }
}

void LinkDrawer::strokeTaper() {
  outlinePen().line(position() + outline_->left, position() + outline_->right);
  if (link_.leftFillet > 0.0) { roundLeft(); }
  if (link_.rightFillet > 0.0) { roundRight(); }
  send(macroText::plain(macroText::mirrorUpDown(position())));
  send(macroText::kShowPowerBar);
}

// Points beside the corner name its sides: one on the boss, one on the shoulder.
void LinkDrawer::roundLeft() {
  const double radius = link_.leftFillet;
  const Point corner = outline_->left;
  const Point outwards = corner / (link_.leftBoss / 2.0);
  const Point onBoss = position() + corner + radius / 4.0 * Point{-outwards.x, 2.0 * outwards.y};
  const Point onShoulder = position() + corner + radius / 4.0 * Point{2.0 * outwards.x, outwards.y};
  const bool rounded = send(macroText::plain(macroText::filletSides(radius, onBoss, onShoulder)));
  tellSharp(rounded, link_.leftShoulder, link_.leftBoss);
}

void LinkDrawer::roundRight() {
  const double radius = link_.rightFillet;
  const Point corner = outline_->right;
  const Point outwards = (corner - Point{link_.distance, 0}) / (link_.rightBoss / 2.0);
  const Point near = position() + corner + radius / 4.0 * Point{outwards.x, 2.0 * outwards.y};
  tellSharp(send(macroText::filletCorner(radius, near)), link_.rightShoulder, link_.rightBoss);
}

// A shoulder as wide as its boss runs into it without a corner.
void LinkDrawer::tellSharp(bool rounded, double shoulder, double boss) {
  if (rounded || nearlyEqual(shoulder, boss)) { return; }
  notice("The fillet does not fit between shoulder and boss; the corner stays sharp.");
}

void LinkDrawer::strokeAxes() {
  constexpr double kReach = 0.6;  // hole diameters
  drawCentreCross(centrePen(), position(), kReach * link_.leftHole, kReach * link_.leftHole);
  drawCentreCross(centrePen(), rightCentre(), kReach * link_.rightHole, kReach * link_.rightHole);
}

void LinkDrawer::selectDrawn() const {
  send(macroText::plain(macroText::selectNameUnclosed(category(), group())));
  send(macroText::plain(macroText::linkSelection(group())));
}

void LinkDrawer::finished() const { send(macroText::kSelectNewPlainEnd); }

}  // namespace ardenix::mech
