#pragma once

#include <vector>

#include "arch/plan_pick.h"
#include "arch/plan_symbol.h"
#include "arch/view_settings.h"
#include "frame/drafting/pen.h"

namespace ardenix::arch {

inline constexpr std::string_view kElevationSection = "ELEVATION";

struct ElevationSettings : ViewSettings {
  double eavesHeight = 2600.0;  // above the ground
  double headHeight = 2150.0;   // of windows and doors, above the floor
};

// Draws the elevation of one face of a plan, folded out beside it: the eaves line lies through the point that the user
// gives, the ground line beyond it, away from the plan.
class ElevationDrawer {
 public:
  explicit ElevationDrawer(ArchSpecStore& store);

  void save();

  // False when the user gave no face or no place for the eaves.
  bool drawRound();

  ElevationSettings settings;

 private:
  // Where an elevation is folded out.
  struct Fold {
    PlanLine face;
    Point foot;              // the point of the face that was picked
    double direction = 0.0;  // away from the building, radians clockwise from the north
    double distance = 0.0;   // from the face to the eaves line

    [[nodiscard]] Point out(Point onFace, double by) const { return moved(onFace, direction, by); }
    // The way on plan that runs to the right in the elevation.
    [[nodiscard]] Point right() const { return quarterTurned(out({}, 1.0)); }
    [[nodiscard]] bool isSquareToAxes() const;
    // By which its symbols are turned, in degrees.
    [[nodiscard]] double symbolRotation() const;
  };

  [[nodiscard]] std::optional<Fold> askFold() const;
  [[nodiscard]] double groundDistance() const { return fold_.distance + settings.eavesHeight; }
  [[nodiscard]] double headDistance() const { return groundDistance() - settings.headHeight; }

  void placeOpenings();
  void placeOpening(Point picked);
  [[nodiscard]] std::optional<PlanSymbol> openingAt(Point picked) const;
  [[nodiscard]] std::optional<Point> leftJamb() const;
  [[nodiscard]] std::optional<Point> leftOfTurned() const;
  bool loadElevation(const PlanSymbol& opening);

  void drawWalls();
  [[nodiscard]] std::optional<Point> askCorner() const;
  void drawOutline(std::vector<Point> corners) const;

  ArchSpecStore& store_;
  CCadWindow& view_;
  Fold fold_;
  size_t seen_ = 0;  // the view, among all of them
  bool toldOfFolder_ = false;
};

}  // namespace ardenix::arch
