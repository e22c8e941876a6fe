#pragma once

#include <optional>
#include <string_view>

#include "frame/host/cad_window.h"
#include "frame/point.h"
#include "mech/fastener.h"

namespace ardenix {

// Where the user put a side view.
struct SidePlacement {
  Point picked;
  bool aligned = false;  // the part stands on a line of the drawing and points at the picked point
};

// Asks where the views of a fastener go, opens their groups, turns and repeats them.
class FastenerPlacement {
 public:
  FastenerPlacement(CCadWindow& view, Fastener& fastener) : view_(view), fastener_(fastener) {}

  // Ask for the position of a view and set the fastener's; nothing when the user ended a prompt. The word
  // names the part in the prompts ("Bolt"). A plan's answer is the point to which it is turned.
  std::optional<SidePlacement> askSideView(std::string_view word);
  std::optional<Point> askPlanView(std::string_view word);

  // Opens the group of the view to be drawn, numbered under the fastener's category.
  void startGroup(std::string_view base);

  // Name the group drawn, turn it, repeat it and leave the drawing ready for the next part. `reference` is the
  // point of the part, as drawn, that is turned onto the point which the user gave.
  void finishSideView(const SidePlacement& placement, Point reference, double axisLength);
  void finishPlanView(Point reference, Point rotationPoint);

 private:
  std::optional<Point> askPoint(std::string_view prompt);
  Point alignedPoint(Point picked);
  std::optional<Point> askFreePlan(std::string_view word);
  std::optional<Point> askPlanOnAxis(std::string_view word);
  std::string_view planPrompt() const;
  void selectGroup();
  void turnOnto(const SidePlacement& placement, Point reference);
  void turnByMenu(double axisLength);
  double askRotation();
  void repeat();
  void repeatLinear();
  void repeatPolar();
  void finish();

  CCadWindow& view_;
  Fastener& fastener_;
};

// Closes a finished part: the next primitive belongs to no group, the cursor is free.
void endPart(CCadWindow& view);

}  // namespace ardenix
