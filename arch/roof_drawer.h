#pragma once

#include <vector>

#include "arch/roof_gables.h"
#include "arch/view_settings.h"
#include "frame/drafting/pen.h"

namespace ardenix::arch {

inline constexpr std::string_view kRoofSection = "ROOFS";

struct RoofSettings : ViewSettings {
  double pitch = 26.0;  // degrees, minutes and seconds as d.mmss
  double overhang = 550.0;
  bool fromPlan = false;  // roof lines with ridges on plan give the whole roof, and no height is asked for
};

// Whether a pitch can be built: above 0 and below 90 degrees, with fewer than 60 minutes and seconds.
bool isPitch(double degreesMinutesSeconds);

// Adds the roof to an elevation beside its plan, from the roof lines on plan that are seen in it.
class RoofDrawer {
 public:
  explicit RoofDrawer(ArchSpecStore& store);

  void save();

  // False when the user gave no face or no elevation.
  bool drawRound();

  RoofSettings settings;

 private:
  // The face and the eaves line of the elevation folded out from it.
  struct Elevation {
    Point foot;  // on the face
    Point picked{};
    PlanLine eaves{};
  };
  // A roof line as the elevation shows it.
  struct RoofLine {
    PlanLine plan;
    PlanLine eaves{};
    double away = 0.0;  // the direction from plan to elevation
    double distance = 0.0;
  };

  [[nodiscard]] std::optional<Elevation> askElevation() const;
  void takeRoofLines();
  [[nodiscard]] std::optional<RoofLine> askRoofLine() const;
  [[nodiscard]] std::optional<RoofLine> projected(const PlanLine& plan) const;
  void drawOverhangs(const RoofLine& line) const;
  void takeGable(const RoofLine& line);
  bool takeWholeRoof(const PlanLine& side);
  [[nodiscard]] double riseOver(double width) const;
  void warnOfPlan() const;

  ArchSpecStore& store_;
  CCadWindow& view_;
  Elevation elevation_;
  std::vector<FacingGable> facing_;
  std::vector<SideGable> sides_;
  double highest_ = 0.0;  // of whole roofs
};

}  // namespace ardenix::arch
