#pragma once

#include "host/geometry/box.h"
#include "host/geometry/point.h"

namespace brevan {

// A circular arc from start to end about a centre; start equal to end is the full circle. The radius is
// the start's distance from the centre; the end gives the angle only.
struct ArcShape {
  Point start;
  Point centre;
  Point end;
  bool clockwise = false;
  friend bool operator==(const ArcShape&, const ArcShape&) = default;
};

double arcRadius(const ArcShape& arc);
// The angle at which the arc starts.
double arcStartAngle(const ArcShape& arc);
// The angle it turns through: above 0 counter-clockwise, below 0 clockwise; a full circle is +-2 pi.
double arcSweep(const ArcShape& arc);
bool isFullCircle(const ArcShape& arc);
Point arcPointAt(const ArcShape& arc, double angle);
// Whether the arc passes the direction of this angle from its centre.
bool arcCovers(const ArcShape& arc, double angle);
Box arcBounds(const ArcShape& arc);
// The point of the curve nearest to p.
Point nearestOnArc(const ArcShape& arc, Point p);

}  // namespace brevan
