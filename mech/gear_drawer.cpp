#include "mech/gear_drawer.h"

#include "frame/drafting/line_settings.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/part_round.h"
#include "frame/drafting/scratch_layer.h"
#include "frame/host/core_services.h"
#include "mech/outline.h"

namespace ardenix::mech {

namespace {

constexpr PlacedTrade kGearTrade = {
    .category = "GEARS", .prefix = "GR", .positionPrompt = "Indicate center point for Gear.", .directionPrompt = ""};

constexpr std::string_view kUnnamed = "_";
constexpr double kNoLand = 1e-9;  // a root shorter than this has no arc of its own

}  // namespace

GearDrawer::GearDrawer(CCadWindow& view, const DefinitionStore& store)
    : RecordDrawer(gearFields(), view, store, kGearTrade) {
  measure({.pressureAngle = 20.0, .teeth = 25, .module = 12.0});
}

void GearDrawer::measure(const GearRecord& gear) {
  gear_ = gear;
  tooth_ = gearTooth(gear);
}

// ---- Placing: the teeth are drawn by macros, in the style that the host has -----------------------------------

void GearDrawer::placeAll() {
  if (!tooth_) { return ErrorMessage("No gear can be drawn with these values.", &view()); }
  const LineSettings settings(view(), outlineStyle());
  PlacedDrawer::placeAll();
}

// The group has no member before all that lies on the layer is linked to it.
void GearDrawer::drawPart(std::optional<Point> /*target*/) {
  const std::string layer = view().gsGetCurrentLayerName();
  removeScratchLayer(view(), scratchNames::kMechanicalLinked);
  openGroup();
  ScratchLayer scratch(view(), scratchNames::kMechanicalLinked);
  stroke();
  scratch.link(group());
  scratch.moveTo(layer);
  view().gsClearSelection();
}

void GearDrawer::sketch() {
  const LineSettings settings(view(), outlineStyle());
  PlacedDrawer::sketch();
}

// ---- Strokes --------------------------------------------------------------------------------------------------

void GearDrawer::stroke() {
  if (!tooth_) { return; }
  strokeTeeth();
  view().gsClearSelection();
  strokeBore();
  if (drawsExtra(kCentreLines)) { strokeCentreLines(); }
}

void GearDrawer::strokeTeeth() {
  const Point centre = position();
  const GearTooth& tooth = *tooth_;
  const auto involute = drawsExtra(kTrueInvolute) ? involuteFlank(gear_) : std::nullopt;
  send(macroText::beginGroup(kUnnamed));
  involute ? strokeInvoluteFlank(*involute) : strokeArcFlank();
  send(macroText::select(centre + (involute ? inSpace(involute->back().end) : tooth.tip)));
  send(macroText::mirrorAcross(centre + tooth.middleOfRoot, centre + tooth.middleOfSpace));
  send(macroText::linkSelection(kUnnamed));
  send(macroText::repeatTeeth(gear_.teeth - 1, centre, tooth.pitchAngle));
}

void GearDrawer::strokeArcFlank() {
  const Point centre = position();
  const GearTooth& tooth = *tooth_;
  send(macroText::arcThrough(centre + tooth.tip, centre + tooth.pitch, centre + tooth.root));
  send(macroText::arcOfRadius(centre + tooth.root, centre + tooth.middleOfRoot, -tooth.rootRadius));
  send(macroText::arcOfRadius(centre + tooth.tip, centre + tooth.middleOfTip, tooth.tipRadius));
  if (!send(macroText::filletFlank(tooth.filletRadius, centre + tooth.middleOfSpace))) {
    notice("The root fillet does not fit between the teeth; the corners stay sharp.");
  }
}

// The flank lies below the middle of the space, where the arc would.
Point GearDrawer::inSpace(Point p) const {
  const Point along = unit(tooth_->middleOfSpace);
  return p.x * along - p.y * quarterTurned(along);
}

void GearDrawer::strokeInvoluteFlank(const std::vector<FlankArc>& flank) const {
  const Point centre = position();
  const DraftingPen pen = outlinePen();
  const auto along = [](bool clockwise) { return clockwise ? ArcSense::kClockwise : ArcSense::kCounterClockwise; };
  const Point root = inSpace(flank.front().start);
  if (distance(root, tooth_->middleOfRoot) > kNoLand) {
    pen.arc(centre + root, centre, centre + tooth_->middleOfRoot, ArcSense::kCounterClockwise);
  }
  for (const FlankArc& arc : flank) {
    pen.arc(centre + inSpace(arc.start), centre + inSpace(arc.centre), centre + inSpace(arc.end),
            along(!arc.clockwise));
  }
  pen.arc(centre + inSpace(flank.back().end), centre, centre + tooth_->middleOfTip, ArcSense::kClockwise);
}

void GearDrawer::strokeCentreLines() const {
  constexpr double kOverhang = 1.1;  // tip radii
  centrePen().circle(position(), length(tooth_->middleOfSpace));
  drawCentreCross(centrePen(), position(), kOverhang * tooth_->tipRadius, kOverhang * tooth_->tipRadius);
}

void GearDrawer::strokeBore() const {
  if (gear_.shaft <= 0.0) { return; }
  const Point centre = position();
  const double radius = gear_.shaft / 2.0;
  const double half = gear_.keyWidth / 2.0;
  const DraftingPen pen = outlinePen();
  if (half <= 0.0 || gear_.keyDepth <= 0.0 || half >= radius) { return pen.circle(centre, radius); }
  const double chord = halfChord(radius, half);
  const Point left = centre + Point{-half, chord};
  const Point right = centre + Point{half, chord};
  const Point up{0, gear_.keyDepth};
  pen.arc(left, centre, right, ArcSense::kCounterClockwise);
  pen.line(left, left + up);
  pen.line(right, right + up);
  pen.line(left + up, right + up);
}

}  // namespace ardenix::mech
