#pragma once

#include <string>
#include <string_view>

#include "survey/job_settings.h"

namespace ardenix::survey {

inline constexpr std::string_view kCornerLayer = "CORNERSPOINTS";

// Marks corners: a circle of beacons, cleared of what lies in it, and the corner's label in the view's own text style,
// on the corner or, as the settings have it, clear of everything beside it.
class CornerMarker {
 public:
  // The diameter is millimetres on paper, that of a symbol where one stands for the circle; 0 draws no circles.
  CornerMarker(CCadWindow& view, const JobSettings& job, double diameter)
      : view_(view), job_(job), radius_(job.paperFactor() * diameter / 2.0) {}

  // Says so where nothing can be drawn on the layer of the circles, or on the current one.
  [[nodiscard]] bool mayDraw() const;
  // On the layer of the circles; the current layer stays.
  void drawCircle(Point corner) const;
  void drawLabel(Point corner, std::string_view label) const;

 private:
  CCadWindow& view_;
  const JobSettings& job_;
  double radius_;
};

}  // namespace ardenix::survey
