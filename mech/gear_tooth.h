#pragma once

#include <optional>

#include "frame/drafting/point.h"

namespace ardenix::mech {

inline constexpr double kRootDepth = 1.25;  // modules below the pitch circle

// A spur gear as the library keeps it. Drawing units, the pressure angle in degrees.
struct GearRecord {
  double pressureAngle = 0.0;
  int teeth = 0;
  double module = 0.0;  // pitch diameter over teeth
  double shaft = 0.0;   // diameter of the bore, 0 for none
  double keyWidth = 0.0;
  double keyDepth = 0.0;  // from the chord that the keyway leaves of the bore
};

// Half a tooth space, measured from the gear's centre: one flank and the arcs to the middles of root and tip. The rest
// of the gear is its image and copies of both.
struct GearTooth {
  double tipRadius = 0.0;
  double rootRadius = 0.0;
  double filletRadius = 0.0;
  double pitchAngle = 0.0;  // degrees from tooth to tooth
  Point tip;                // of the flank, where it meets the circles
  Point pitch;
  Point root;
  Point middleOfRoot;   // of the space, on the root circle
  Point middleOfSpace;  // the same on the pitch circle
  Point middleOfTip;    // of the tooth, on the tip circle
  // The flank reaches from the root to the tip and keeps its side of both middles. With few teeth it does not.
  bool sound = false;
};

// The flank is one arc that approximates the involute: about a point on its line of action, through the points where it
// crosses the three circles. Nothing for values that give no gear, as no module or a pressure angle of 90 degrees.
std::optional<GearTooth> gearTooth(const GearRecord& gear);

}  // namespace ardenix::mech
