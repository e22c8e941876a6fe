#pragma once

#include <optional>
#include <string_view>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"
#include "mech/fastener.h"

namespace ardenix::mech {

// Where the user put a side view.
struct SidePlacement {
  Point picked;
  bool turnsToPicked = false;  // its axis is to point at the picked point; else the user is asked for the angle
};

// The points of a part, as drawn, by which its views are turned: how far they lie below its position.
struct FastenerReach {
  double length = 0.0;      // the side view's reference point
  double axisLength = 0.0;  // the far end of its axis
  double planRadius = 0.0;  // the plan's reference point
};

// Asks where the views of a fastener go, opens their groups, turns and repeats them.
class FastenerPlacement {
 public:
  FastenerPlacement(CCadWindow& view, Fastener& fastener, const FastenerTrade& trade)
      : view_(view), fastener_(fastener), trade_(trade) {}

  // Ask for the position of a view and set the fastener's; nothing when the user ended a prompt. A plan's
  // answer is the point to which it is turned.
  std::optional<SidePlacement> askSideView();
  std::optional<Point> askPlanView();

  // Open the group of the view to be drawn, numbered under the trade's category.
  void startSideGroup() { startGroup(trade_.sideGroup); }
  void startPlanGroup() { startGroup(trade_.planGroup); }

  // Name the group drawn, turn it, repeat it and leave the drawing ready for the next part.
  void finishSideView(const SidePlacement& placement, const FastenerReach& reach);
  void finishPlanView(Point rotationPoint, const FastenerReach& reach);

 private:
  std::optional<SidePlacement> askSideByTwoPoints();
  Point alignedPoint(Point picked);
  std::optional<Point> askPlanOnAxis();
  std::string_view planPrompt() const;
  void startGroup(std::string_view base);
  void turnOnto(Point target, double length);
  void turnByMenu(double axisLength);
  double askRotation();
  [[nodiscard]] bool repeats() const;
  [[nodiscard]] bool repeatsPolar() const;
  [[nodiscard]] Point onAxis(Point picked) const;
  void repeat();
  void repeatLinear();
  void repeatPolar();
  void finish();

  CCadWindow& view_;
  Fastener& fastener_;
  const FastenerTrade& trade_;
};

// Closes a finished part: the next primitive belongs to no group, the cursor is free.
void endFastener(CCadWindow& view);

}  // namespace ardenix::mech
