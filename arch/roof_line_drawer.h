#pragma once

#include <string>

#include "arch/roof_skeleton.h"
#include "arch/spec_store.h"
#include "frame/drafting/line_style.h"

namespace ardenix::arch {

inline constexpr std::string_view kRoofLineSection = "ROOFLN";

struct RoofLineSettings {
  double offset = -550.0;  // from the wall to the roof line: outwards below 0
  LineStyle style{.linetype = 2};
  std::string layer;
  bool ridges = false;     // ridges, hips and valleys are drawn within the roof line
  std::string ridgeLayer;  // on which they lie
};

// The layer of roof lines.
std::string roofLineLayer(const ArchSpecStore& store);
// The layer of ridges, hips and valleys: that of roof lines and "_RIDGES" where the file names none.
std::string ridgeLayer(const ArchSpecStore& store);

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
  [[nodiscard]] bool drawLine();
  void drawRidges(size_t linesBefore);
  void askGables(RoofOutline& outline);

  ArchSpecStore& store_;
  CCadWindow& view_;
};

}  // namespace ardenix::arch
