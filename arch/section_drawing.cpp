#include "arch/section_drawing.h"

#include <algorithm>

#include "arch/plan_geometry.h"
#include "arch/section_finish.h"
#include "arch/section_wall.h"

namespace ardenix::arch {

namespace {

constexpr int kHangsBelow = 6;  // justification of the title

void drawFloor(const SectionSheet& sheet, const ExternalWall& close, const ExternalWall& far) {
  const DraftingPen pen = sheet.cutPen();
  pen.line(close.at(0.0, close.floor()), far.at(0.0, far.floor()));
  sheet.pen().line(close.at(0.0, close.ground()), far.at(0.0, far.ground()));
  close.groundOutside();
  far.groundOutside();
  const double slab = close.floor() - sheet.settings.slabHeight;
  pen.line(close.at(0.0, slab), far.at(0.0, slab));
}

void drawTitle(const SectionSheet& sheet, const ExternalWall& close, const ExternalWall& far) {
  const double deeper = std::min(close.footingBottom(), far.footingBottom());
  const Point at{middle(close.footingMiddle(), far.footingMiddle()).x, sheet.place(0.0, deeper).y};
  const std::string& label = sheet.settings.label;
  sheet.pen().text(at, "Section " + label + "-" + label, sheet.settings.text(sheet.settings.section.pen, kHangsBelow));
}

void drawInternalWalls(const SectionSheet& sheet) {
  const double thickness = sheet.internal.widths[kIntWallWidth];
  for (const double face : sheet.line.internalWalls) {
    for (const double along : {face, face + thickness}) {
      sheet.cutPen().line(sheet.place(along, 0.0), sheet.place(along, -sheet.eavesHeight));
    }
  }
}

}  // namespace

// A section that runs up the sheet is seen from the right of its way.
Point SectionSheet::towardsFar() const {
  return line.direction == 90 || line.direction == 180 ? Point{1.0, 0.0} : Point{-1.0, 0.0};
}

void drawSection(const SectionSheet& sheet) {
  const ExternalWall close(sheet, false);
  const ExternalWall far(sheet, true);
  close.draw();
  far.draw();
  drawFloor(sheet, close, far);
  drawTitle(sheet, close, far);
  drawInternalWalls(sheet);
  close.cutOpening();
  far.cutOpening();
  finishSection(sheet);
}

}  // namespace ardenix::arch
