#include "arch/section_finish.h"

#include <algorithm>
#include <array>

#include "arch/section_wall.h"
#include "frame/drafting/line_settings.h"
#include "frame/drafting/macro_texts.h"

namespace ardenix::arch {

namespace {

constexpr double kGroundDepth = 250.0;  // of the ground that is shown
constexpr double kFirstRow = 500.0;     // of dimensions, beyond the ground's end
constexpr double kNextRow = 600.0;      // from a row of dimensions to the next

// The materials of what a section cuts.
class Materials {
 public:
  explicit Materials(const SectionSheet& sheet) : sheet_(sheet) {}

  void ofWall(const ExternalWall& wall) const {
    for (const auto& [inner, outer] : wall.leaves()) {
      if (wall.opening() == SectionOpening::kNone) {
        fill("MASONRY", wall, {inner, outer}, {wall.footingTop(), 0.0});
        continue;
      }
      fill("MASONRY", wall, {inner, outer}, {wall.footingTop(), wall.sill()});
      fill("MASONRY", wall, {inner, outer}, {wall.head(), 0.0});
    }
    fill("CONCRETE", wall, {wall.footingInner(), wall.footingOuter()}, {wall.footingBottom(), wall.footingTop()});
    const double outside = wall.thickness();
    fill("EARTH", wall, {outside, outside + ExternalWall::kGroundOutside},
         {wall.ground() - kGroundDepth, wall.ground()});
  }

  void ofFloor(const ExternalWall& close, const ExternalWall& far) const {
    const double slab = close.floor() - sheet_.settings.slabHeight;
    fill("CONCRETE", {close.at(0.0, slab), far.at(0.0, slab), far.at(0.0, far.floor()), close.at(0.0, close.floor())});
    const bool groundIsBelow = close.ground() < slab && far.ground() < slab;
    if (!groundIsBelow) { return; }
    fill("HARDCORE",
         {close.at(0.0, close.ground()), far.at(0.0, far.ground()), far.at(0.0, slab), close.at(0.0, slab)});
  }

  void ofInternalWalls() const {
    const double thickness = sheet_.internal.widths[kIntWallWidth];
    for (const double face : sheet_.line.internalWalls) {
      fill("MASONRY", {sheet_.place(face, -sheet_.eavesHeight), sheet_.place(face + thickness, -sheet_.eavesHeight),
                       sheet_.place(face + thickness, 0.0), sheet_.place(face, 0.0)});
    }
  }

 private:
  using Range = std::pair<double, double>;
  void fill(std::string_view pattern, const std::array<Point, 4>& corners) const {
    sheet_.view.gsExecuteMacro(macroText::hatch(pattern, sheet_.settings.hatchScale, corners));
  }
  void fill(std::string_view pattern, const ExternalWall& wall, Range outwards, Range up) const {
    if (up.second <= up.first) { return; }
    fill(pattern, {wall.at(outwards.first, up.first), wall.at(outwards.second, up.first),
                   wall.at(outwards.second, up.second), wall.at(outwards.first, up.second)});
  }

  const SectionSheet& sheet_;
};

// Heights beside a wall, from row to row further out.
class Heights {
 public:
  Heights(const SectionSheet& sheet, const ExternalWall& wall) : sheet_(sheet), wall_(wall) {}

  void draw() const {
    std::vector<double> levels = {wall_.footingBottom(), wall_.footingTop(), wall_.floor()};
    if (wall_.opening() == SectionOpening::kWindow) { levels.push_back(wall_.sill()); }
    if (wall_.opening() != SectionOpening::kNone) { levels.push_back(wall_.head()); }
    levels.push_back(0.0);
    for (size_t at = 0; at + 1 < levels.size(); ++at) { dimension(0, levels[at], levels[at + 1]); }
    dimension(1, wall_.floor(), 0.0);
  }

 private:
  void dimension(int row, double from, double to) const {
    if (to <= from) { return; }
    const double outwards = wall_.thickness() + ExternalWall::kGroundOutside + kFirstRow + row * kNextRow;
    sheet_.view.gsExecuteMacro(macroText::uprightDimension(
        wall_.at(outwards, (from + to) / 2.0), wall_.at(wall_.thickness(), from), wall_.at(wall_.thickness(), to)));
  }

  const SectionSheet& sheet_;
  const ExternalWall& wall_;
};

}  // namespace

void finishSection(const SectionSheet& sheet) {
  const ExternalWall close(sheet, false);
  const ExternalWall far(sheet, true);
  const LineSettings thin(sheet.view, {.pen = sheet.settings.section.pen});
  if (sheet.settings.hatches) {
    const Materials materials(sheet);
    materials.ofWall(close);
    materials.ofWall(far);
    materials.ofFloor(close, far);
    materials.ofInternalWalls();
  }
  if (sheet.settings.measures) { Heights(sheet, far).draw(); }
}

}  // namespace ardenix::arch
