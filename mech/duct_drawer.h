#pragma once

#include <string_view>

#include "frame/drafting/pen.h"
#include "frame/host/cad_window.h"
#include "mech/duct_pattern.h"

namespace ardenix::mech {

// Draws a duct from the lower left of its views: side view, end view and plan with their dimensions, and the pattern of
// half its surface beside them.
class DuctDrawer {
 public:
  DuctDrawer(CCadWindow& view, const LineStyle& style);

  void take(const Duct& duct);
  // The lines along which the pattern is folded, a quarter of a millimetre wide.
  void drawThinFolds();
  // At each point that the user gives.
  void placeDucts();
  // At the origin.
  void draw(Point lowerLeft);

 private:
  void strokeSideView() const;
  void strokeEndView() const;
  void strokePlan() const;
  void strokePattern() const;
  void strokeLeftHalf(Point corner, const DuctHalf& half) const;
  void strokeRightHalf(Point corner, const DuctHalf& half) const;
  void strokeTitles() const;
  void dimensionSideView() const;
  void dimensionPlan() const;
  // A text of one of the duct's points, or of a view.
  void label(std::string_view text, Point at) const;
  void label(std::string_view text, Point point, int across, int up, double part) const;

  [[nodiscard]] DraftingPen foldPen() const { return {view_, folds_}; }
  [[nodiscard]] Point at(double x, double y) const { return origin_ + Point{x, y}; }
  [[nodiscard]] Point plan(double x, double y) const { return at(x, 2.0 * duct_.height + y); }
  [[nodiscard]] double toLeft() const { return duct_.length / 2.0 - duct_.offset; }

  CCadWindow& view_;
  DraftingPen pen_;
  LineStyle folds_;
  TextStyle text_;
  Duct duct_;
  DuctPattern pattern_{};
  Point origin_;
};

}  // namespace ardenix::mech
