#pragma once

#include <utility>
#include <vector>

#include "arch/section_drawing.h"

namespace ardenix::arch {

// One of the two external walls that a section cuts. Places are given outwards from its inside face, and up from its
// top.
class ExternalWall {
 public:
  ExternalWall(const SectionSheet& sheet, bool atFarWall);

  [[nodiscard]] Point at(double outwards, double up) const;
  [[nodiscard]] double thickness() const { return sheet_.wallThickness(); }
  [[nodiscard]] double floor() const { return -sheet_.eavesHeight; }
  [[nodiscard]] double ground() const { return floor() - floorToGround_; }
  [[nodiscard]] double footingTop() const { return floor() - floorToFooting_; }
  [[nodiscard]] double footingBottom() const { return footingTop() - footingHeight_; }
  [[nodiscard]] double footingOuter() const { return (thickness() + footingWidth_) / 2.0; }
  [[nodiscard]] double footingInner() const { return (thickness() - footingWidth_) / 2.0; }
  [[nodiscard]] Point footingMiddle() const { return at(thickness() / 2.0, footingBottom()); }
  [[nodiscard]] SectionOpening opening() const { return sheet_.openings[isFar_ ? 1 : 0]; }
  // Of the opening in it.
  [[nodiscard]] double head() const { return sheet_.headHeight - sheet_.eavesHeight; }
  [[nodiscard]] double sill() const {
    return opening() == SectionOpening::kDoor ? floor() : head() - sheet_.settings.windowHeight;
  }
  // Where its leaves begin and end, from the inside face; a leaf without width is none.
  [[nodiscard]] std::vector<std::pair<double, double>> leaves() const;

  void draw() const;
  void cutOpening() const;
  void groundOutside() const;

  static constexpr double kGroundOutside = 1000.0;  // the ground goes on so far

 private:
  void face(double outwards) const;
  void footing() const;

  const SectionSheet& sheet_;
  bool isFar_;
  double footingWidth_;
  double footingHeight_;
  double floorToGround_;
  double floorToFooting_;
};

}  // namespace ardenix::arch
