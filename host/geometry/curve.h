#pragma once

#include <utility>
#include <variant>
#include <vector>

#include "host/geometry/arc.h"
#include "host/geometry/box.h"
#include "host/geometry/segment.h"

namespace brevan {

// What can be cut and traced: a segment or an arc, run through from its start (parameter 0) to its end
// (parameter 1) at even speed. A full circle is closed: its parameters go round.
using Curve = std::variant<Segment, ArcShape>;

Point startOf(const Curve& curve);
Point endOf(const Curve& curve);
bool isClosed(const Curve& curve);
double lengthOf(const Curve& curve);
Box boundsOf(const Curve& curve);
Point pointAt(const Curve& curve, double t);
// The unit direction of travel; of a segment without length the x axis.
Point directionAt(const Curve& curve, double t);
// How it bends: above 0 to the left, 1 / radius in size; 0 for a segment.
double curvature(const Curve& curve);
Point nearestOn(const Curve& curve, Point p);
// Where p lies along the curve carried on beyond its ends; of an arc between -1/2 and +1/2 turns from its
// middle. Exact at the ends.
double parameterOf(const Curve& curve, Point p);
// From one parameter to a later one; of a full circle the later may exceed 1.
Curve pieceOf(const Curve& curve, double from, double to);
Curve reversed(const Curve& curve);

// A side told by its ends and its bulge, the tangent of a quarter of the angle it turns through, above 0 to the left.
Curve bulgedSide(Point from, Point to, double bulge);
// Of a full circle infinite: take its halves.
double bulgeOf(const Curve& curve);

// Twice the area that the curve sweeps as seen from the origin given: above 0 to the left.
double sweptArea(const Curve& curve, Point origin);

// Where two curves meet, as parameters of both.
struct Crossing {
  double first = 0.0;
  double second = 0.0;
  Point at;
};

// Crossings, touches, and for curves that lie on each other the ends of each on the other. What is nearer
// than the tolerance meets. In no order; the same place may come twice.
std::vector<Crossing> crossings(const Curve& first, const Curve& second, double tolerance);

// The crossings of endless lines and whole circles; one where they touch within the tolerance.
std::vector<Point> lineWithCircle(const Segment& line, Point centre, double radius, double tolerance);
std::vector<Point> circleWithCircle(Point centre1, double radius1, Point centre2, double radius2, double tolerance);
std::vector<Point> crossingsOfEndless(const Curve& first, const Curve& second, double tolerance);

// The curve as a chain of points, none further from it than the tolerance; both ends are in it.
std::vector<Point> flattened(const Curve& curve, double tolerance);

}  // namespace brevan
