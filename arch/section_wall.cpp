#include "arch/section_wall.h"

#include "frame/drafting/macro_texts.h"

namespace ardenix::arch {

namespace {

constexpr double kFrameDepth = 40.0;

}  // namespace

ExternalWall::ExternalWall(const SectionSheet& sheet, bool atFarWall)
    : sheet_(sheet),
      isFar_(atFarWall),
      footingWidth_(atFarWall ? sheet.settings.footingWidth2 : sheet.settings.footingWidth1),
      footingHeight_(atFarWall ? sheet.settings.footingHeight2 : sheet.settings.footingHeight1),
      floorToGround_(atFarWall ? sheet.settings.floorToGround2 : sheet.settings.floorToGround1),
      floorToFooting_(atFarWall ? sheet.settings.floorToFooting2 : sheet.settings.floorToFooting1) {}

Point ExternalWall::at(double outwards, double up) const {
  return sheet_.place(isFar_ ? sheet_.line.length() + outwards : -outwards, up);
}

std::vector<std::pair<double, double>> ExternalWall::leaves() const {
  const auto& widths = sheet_.external.widths;
  const double cavity = widths[kIntWallWidth] + widths[kCavityWidth];
  std::vector<std::pair<double, double>> all;
  if (widths[kIntWallWidth] > 0.0) { all.emplace_back(0.0, widths[kIntWallWidth]); }
  if (widths[kExtWallWidth] > 0.0) { all.emplace_back(cavity, thickness()); }
  return all;
}

void ExternalWall::draw() const {
  const auto& widths = sheet_.external.widths;
  double outwards = 0.0;
  face(outwards);
  for (const WallWidth leaf : {kIntWallWidth, kCavityWidth, kExtWallWidth}) { face(outwards += widths[leaf]); }
  footing();
}

void ExternalWall::face(double outwards) const { sheet_.cutPen().line(at(outwards, 0.0), at(outwards, footingTop())); }

void ExternalWall::footing() const {
  const DraftingPen pen = sheet_.cutPen();
  const double outer = footingOuter();
  const double inner = footingInner();
  pen.line(at(outer, footingTop()), at(inner, footingTop()));
  pen.line(at(outer, footingTop()), at(outer, footingBottom()));
  pen.line(at(inner, footingTop()), at(inner, footingBottom()));
  pen.line(at(outer, footingBottom()), at(inner, footingBottom()));
}

void ExternalWall::groundOutside() const {
  sheet_.pen().line(at(thickness(), ground()), at(thickness() + kGroundOutside, ground()));
}

void ExternalWall::cutOpening() const {
  if (opening() == SectionOpening::kNone) { return; }
  const Point outside = at(thickness(), isFar_ ? sill() : head());
  const Point inside = at(0.0, isFar_ ? head() : sill());
  sheet_.view.gsExecuteMacro(macroText::lineType(sheet_.settings.section.linetype, sheet_.settings.section.pen));
  sheet_.view.gsExecuteMacro(isFar_ ? macroText::cutWindow(inside, outside) : macroText::cutWindow(outside, inside));
  const double frame = thickness() - thickness() / 4.0;
  for (const double outwards : {frame, frame - kFrameDepth}) {
    sheet_.pen().line(at(outwards, head()), at(outwards, sill()));
  }
}

}  // namespace ardenix::arch
