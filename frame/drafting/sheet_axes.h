#pragma once

#include "frame/host/cad_window.h"

namespace ardenix {

// What runs to the right and up on paper, in the drawing: 1 where coordinates grow that way, -1 on a south-oriented
// survey sheet, which has its first axis to the left and its second downwards. Parameter 7 is the coordinate system
// (0 survey), 10 the orientation; a Cartesian drawing is never turned.
inline double paperSign(const DrawingParms& parms) {
  const bool turned = parms.p[7] == 0.0 && parms.p[10] != 0.0;
  return turned ? -1.0 : 1.0;
}

inline double paperSignOf(CCadWindow& view) {
  DrawingParms parms;
  view.gsGetDrawingParms(parms);
  return paperSign(parms);
}

// Drawing units of a millimetre on paper. Parameter 1 is the scale's denominator, 3 is 100000 x millimetres per drawing
// unit; 1 where the view tells no unit.
inline double paperMillimetre(CCadWindow& view) {
  constexpr double kUnitOfParms = 100000.0;
  DrawingParms parms;
  view.gsGetDrawingParms(parms);
  return parms.p[3] > 0.0 ? parms.p[1] * kUnitOfParms / parms.p[3] : 1.0;
}

}  // namespace ardenix
