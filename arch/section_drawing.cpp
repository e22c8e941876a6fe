#include "arch/section_drawing.h"

#include <algorithm>

#include "arch/plan_geometry.h"
#include "frame/drafting/macro_texts.h"

namespace ardenix::arch {

namespace {

constexpr double kGroundOutside = 1000.0;
constexpr double kFrameDepth = 40.0;
constexpr int kHangsBelow = 6;  // justification of the title

// One of the two external walls. Places are given outwards from its inside face, and up from its top.
class ExternalWall {
 public:
  ExternalWall(const SectionSheet& sheet, bool atFarWall)
      : sheet_(sheet),
        isFar_(atFarWall),
        footingWidth_(atFarWall ? sheet.settings.footingWidth2 : sheet.settings.footingWidth1),
        footingHeight_(atFarWall ? sheet.settings.footingHeight2 : sheet.settings.footingHeight1),
        floorToGround_(atFarWall ? sheet.settings.floorToGround2 : sheet.settings.floorToGround1),
        floorToFooting_(atFarWall ? sheet.settings.floorToFooting2 : sheet.settings.floorToFooting1) {}

  void draw() const {
    const auto& widths = sheet_.external.widths;
    double outwards = 0.0;
    face(outwards);
    for (const WallWidth leaf : {kIntWallWidth, kCavityWidth, kExtWallWidth}) { face(outwards += widths[leaf]); }
    footing();
  }

  [[nodiscard]] Point at(double outwards, double up) const {
    return sheet_.place(isFar_ ? sheet_.line.length() + outwards : -outwards, up);
  }
  [[nodiscard]] double floor() const { return -sheet_.eavesHeight; }
  [[nodiscard]] double ground() const { return floor() - floorToGround_; }
  [[nodiscard]] Point footingMiddle() const { return at(thickness() / 2.0, footingBottom()); }
  [[nodiscard]] double footingBottom() const { return footingTop() - footingHeight_; }

  void groundOutside() const {
    sheet_.pen().line(at(thickness(), ground()), at(thickness() + kGroundOutside, ground()));
  }

  void cut(SectionOpening opening) const {
    if (opening == SectionOpening::kNone) { return; }
    const double head = sheet_.headHeight - sheet_.eavesHeight;
    const double sill = opening == SectionOpening::kDoor ? floor() : head - sheet_.settings.windowHeight;
    const Point outside = at(thickness(), isFar_ ? sill : head);
    const Point inside = at(0.0, isFar_ ? head : sill);
    sheet_.view.gsExecuteMacro(macroText::lineType(sheet_.settings.section.linetype, sheet_.settings.section.pen));
    sheet_.view.gsExecuteMacro(isFar_ ? macroText::cutWindow(inside, outside) : macroText::cutWindow(outside, inside));
    const double frame = thickness() - thickness() / 4.0;
    for (const double outwards : {frame, frame - kFrameDepth}) {
      sheet_.pen().line(at(outwards, head), at(outwards, sill));
    }
  }

 private:
  [[nodiscard]] double thickness() const { return sheet_.wallThickness(); }
  [[nodiscard]] double footingTop() const { return floor() - floorToFooting_; }
  void face(double outwards) const { sheet_.pen().line(at(outwards, 0.0), at(outwards, footingTop())); }

  void footing() const {
    const DraftingPen pen = sheet_.pen();
    const double outer = (thickness() + footingWidth_) / 2.0;
    const double inner = (thickness() - footingWidth_) / 2.0;
    pen.line(at(outer, footingTop()), at(inner, footingTop()));
    pen.line(at(outer, footingTop()), at(outer, footingBottom()));
    pen.line(at(inner, footingTop()), at(inner, footingBottom()));
    pen.line(at(outer, footingBottom()), at(inner, footingBottom()));
  }

  const SectionSheet& sheet_;
  bool isFar_;
  double footingWidth_;
  double footingHeight_;
  double floorToGround_;
  double floorToFooting_;
};

void drawFloor(const SectionSheet& sheet, const ExternalWall& close, const ExternalWall& far) {
  const DraftingPen pen = sheet.pen();
  pen.line(close.at(0.0, close.floor()), far.at(0.0, far.floor()));
  pen.line(close.at(0.0, close.ground()), far.at(0.0, far.ground()));
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
      sheet.pen().line(sheet.place(along, 0.0), sheet.place(along, -sheet.eavesHeight));
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
  close.cut(sheet.openings[0]);
  far.cut(sheet.openings[1]);
}

}  // namespace ardenix::arch
