#pragma once

#include "frame/drafting/pen.h"
#include "frame/drafting/point.h"

// Shapes that several kinds of part are drawn with.
namespace ardenix::mech {

// The radius of the circle through three points in order; 0 where the last two coincide, very large where
// all lie on a line.
double radiusThrough(Point first, Point second, Point third);

// The arc from a point over or under an apex to a point level with the first, on the other side of the apex.
void drawCrown(const DraftingPen& pen, Point start, Point apex, Point end,
               ArcSense sense = ArcSense::kCounterClockwise);

// The thread as a plan shows it: a circle that stays open in the upper right quarter, from 20 to 70 degrees.
void drawThreadArc(const DraftingPen& pen, Point centre, double radius);

// Centre lines of a plan, the horizontal one first, reaching so far from the centre.
void drawCentreCross(const DraftingPen& pen, Point centre, double across, double up);

// Survey directions, in radians clockwise from the y axis: from one point to another, and the point at one.
double bearing(Point from, Point to);
Point atBearing(Point from, double bearing, double distance);

// Half of a chord so far from the centre of a circle; 0 where the chord would miss the circle.
double halfChord(double radius, double distance);

}  // namespace ardenix::mech
