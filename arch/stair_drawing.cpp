#include "arch/stair_drawing.h"

#include <array>

#include "arch/elevation_view.h"
#include "arch/plan_geometry.h"
#include "frame/drafting/macro_texts.h"
#include "frame/drafting/scratch_layer.h"

namespace ardenix::arch {

namespace {

constexpr int kQuarterDegrees = 90;
constexpr int kQuarters = 4;

}  // namespace

Point quarterWay(int direction) {
  constexpr std::array<Point, kQuarters> kWays = {{{0.0, 1.0}, {1.0, 0.0}, {0.0, -1.0}, {-1.0, 0.0}}};
  return kWays[static_cast<size_t>(normaliseDegrees(direction) / kQuarterDegrees)];
}

int quarterOf(Point from, Point to) { return normaliseDegrees(snapQuadrant(degrees(directionOf(from, to)))); }

StairMirror mirrorOf(int planDirection, int viewDirection) {
  using enum StairMirror;
  constexpr StairMirror kMirrors[kQuarters][kQuarters] = {
      {kNone, kNone, kUpDown, kSideways},
      {kUpDown, kNone, kNone, kSideways},
      {kUpDown, kSideways, kNone, kNone},
      {kNone, kSideways, kUpDown, kNone},
  };
  return kMirrors[planDirection / kQuarterDegrees][viewDirection / kQuarterDegrees];
}

void mirrorStair(CCadWindow& view, StairMirror mirror, Point base) {
  view.gsClearSelection();
  view.gsExecuteMacro(macroText::selectLayer(scratchNames::kArchitectural));
  if (mirror == StairMirror::kSideways) { view.gsExecuteMacro(macroText::turnOverSideways(base)); }
  if (mirror == StairMirror::kUpDown) { view.gsExecuteMacro(macroText::turnOverUpDown(base)); }
}

std::vector<Strip> stripsBesideRails(const Stair& stair) {
  const RailingRecord& railing = stair.railing;
  const double inner = railing.newelWidth + railing.railWidth;
  const double width = stair.treads.width;
  std::vector<Strip> strips;
  if (railing.left) { strips.push_back({0.0, railing.newelWidth}); }
  strips.push_back({railing.left ? inner : 0.0, railing.right ? width - inner : width});
  if (railing.right) { strips.push_back({width, width - railing.newelWidth}); }
  return strips;
}

}  // namespace ardenix::arch
