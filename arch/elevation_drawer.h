#pragma once

#include <vector>

#include "arch/elevation_fold.h"
#include "arch/plan_pick.h"
#include "arch/plan_symbol.h"
#include "arch/view_settings.h"
#include "frame/drafting/pen.h"

namespace ardenix::arch {

inline constexpr std::string_view kElevationSection = "ELEVATION";

struct ElevationSettings : ViewSettings {
  double eavesHeight = 2600.0;  // above the ground
  double headHeight = 2150.0;   // of windows and doors, above the floor
  bool names = false;           // written under the elevations
  bool levels = false;          // marked at their edges
  bool wholeFaces = false;      // a pick of the face's wall takes all of its openings
  bool replaces = false;        // one whose eaves line is pointed at is drawn again in its place
  double groundBeyond = 0.0;    // how far the ground line runs past the walls
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
  [[nodiscard]] std::optional<ElevationFold> askFold() const;
  [[nodiscard]] double groundDistance() const { return fold_.distance + settings.eavesHeight; }
  [[nodiscard]] double headDistance() const { return groundDistance() - settings.headHeight; }

  void placeOpenings();
  void placeOpening(Point picked);
  [[nodiscard]] std::optional<PlanSymbol> openingAt(Point picked) const;
  // The corner of a symbol on plan that lies furthest towards one side of the elevation.
  [[nodiscard]] std::optional<Point> jamb(const PlanSymbol& opening, Point side) const;
  [[nodiscard]] std::optional<Point> jambOfTurned(Point side) const;
  bool addElevation(const PlanSymbol& opening, Point head) const;
  bool placeOpeningsOfWall();
  bool loadElevation(const PlanSymbol& opening);

  void drawWalls();
  [[nodiscard]] std::optional<Point> askCorner() const;
  void drawOutline(std::vector<Point> corners) const;
  [[nodiscard]] std::string patternToReplace(ElevationFold& fold) const;
  [[nodiscard]] std::string cleanParent() const;
  void replace(const std::string& group);

  ArchSpecStore& store_;
  CCadWindow& view_;
  ElevationFold fold_;
  size_t seen_ = 0;       // the view, among all of them
  std::string replaced_;  // parent and name of the elevation that is drawn again; "": none is
  bool toldOfFolder_ = false;
};

}  // namespace ardenix::arch
