#pragma once

#include <string>

#include "arch/spec_store.h"
#include "frame/drafting/line_style.h"

namespace ardenix::arch {

inline constexpr std::string_view kRoofLineSection = "ROOFLN";

struct RoofLineSettings {
  double offset = -550.0;  // from the wall to the roof line: outwards below 0
  LineStyle style{.linetype = 2};
  std::string layer;
};

// How far roofs overhang, whichever sign the file gives it.
double eavesOverhang(const ArchSpecStore& store);

// Draws the outline of a roof on plan, parallel to the closed figure that the user points at.
class RoofLineDrawer {
 public:
  explicit RoofLineDrawer(ArchSpecStore& store);

  void save();
  void draw();

  RoofLineSettings settings;

 private:
  [[nodiscard]] bool hasLines(int layer);

  ArchSpecStore& store_;
  CCadWindow& view_;
};

}  // namespace ardenix::arch
