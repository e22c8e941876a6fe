#include "mech/outline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "frame/host/core_services.h"

namespace ardenix::mech {

double radiusThrough(Point first, Point second, Point third) {
  double chord = 0.0;
  double firstDirection = 0.0;
  double secondDirection = 0.0;
  coreSurvJoin(first.y, first.x, second.y, second.x, chord, firstDirection);
  coreSurvJoin(second.y, second.x, third.y, third.x, chord, secondDirection);
  const double turn = firstDirection - secondDirection;
  return std::fabs(chord / 2.0 / std::cos((std::numbers::pi - turn) / 2.0));
}

void drawCrown(const DraftingPen& pen, Point start, Point apex, Point end, ArcSense sense) {
  const double radius = std::copysign(radiusThrough(start, apex, end), apex.y - start.y);
  pen.arc(start, apex + Point{0, -radius}, end, sense);
}

void drawThreadArc(const DraftingPen& pen, Point centre, double radius) {
  const auto at = [&](double bearing) {
    return centre + Point{radius * std::sin(radians(bearing)), radius * std::cos(radians(bearing))};
  };
  pen.arc(at(20.0), centre, at(70.0), ArcSense::kCounterClockwise);
}

void drawCentreCross(const DraftingPen& pen, Point centre, double across, double up) {
  pen.line(centre + Point{-across, 0}, centre + Point{across, 0});
  pen.line(centre + Point{0, -up}, centre + Point{0, up});
}

double bearing(Point from, Point to) {
  double distance = 0.0;
  double direction = 0.0;
  coreSurvJoin(from.y, from.x, to.y, to.x, distance, direction);
  return direction;
}

Point atBearing(Point from, double bearing, double distance) {
  Point at;
  coreSurvPolar(from.y, from.x, bearing, distance, at.y, at.x);
  return at;
}

double halfChord(double radius, double distance) {
  return std::sqrt(std::max(radius * radius - distance * distance, 0.0));
}

}  // namespace ardenix::mech
