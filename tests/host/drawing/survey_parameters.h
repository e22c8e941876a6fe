#pragma once

#include "host/drawing/parameters.h"

namespace brevan {

// The parameters of a survey drawing, whose paper shows the axes pointing left and down, or right and up with
// orientation 0.
inline Parameters surveyParameters(double scale = 1.0, double unit = 1.0, int orientation = 1) {
  Parameters parameters;
  parameters.setScale(scale);
  parameters.setUnit(unit);
  parameters.setCoordinateSystem(0);
  parameters.setOrientation(orientation);
  return parameters;
}

}  // namespace brevan
