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
}

void GearDrawer::strokeTeeth() {
  const Point centre = position();
  const GearTooth& tooth = *tooth_;
  send(macroText::beginGroup(kUnnamed));
  send(macroText::arcThrough(centre + tooth.tip, centre + tooth.pitch, centre + tooth.root));
  send(macroText::arcOfRadius(centre + tooth.root, centre + tooth.middleOfRoot, -tooth.rootRadius));
  send(macroText::arcOfRadius(centre + tooth.tip, centre + tooth.middleOfTip, tooth.tipRadius));
  if (!send(macroText::filletFlank(tooth.filletRadius, centre + tooth.middleOfSpace))) {
    notice("The root fillet does not fit between the teeth; the corners stay sharp.");
  }
  send(macroText::select(centre + tooth.tip));
  send(macroText::mirrorAcross(centre + tooth.middleOfRoot, centre + tooth.middleOfSpace));
  send(macroText::linkSelection(kUnnamed));
  send(macroText::repeatTeeth(gear_.teeth - 1, centre, tooth.pitchAngle));
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
