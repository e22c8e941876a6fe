#include "mech/hexagon.h"

#include <cmath>
#include <numbers>

#include "frame/host/core_services.h"

namespace ardenix {

Hexagon hexagon(double acrossFlats, double height) {
  Hexagon hexagon;
  hexagon.halfAcrossFlats = acrossFlats / 2.0;
  hexagon.halfAcrossCorners = hexagon.halfAcrossFlats / std::cos(radians(30.0));
  hexagon.halfSide = hexagon.halfAcrossFlats * std::tan(radians(30.0));
  hexagon.height = height;
  hexagon.cornerHeight = height - (hexagon.halfAcrossCorners - hexagon.halfAcrossFlats) * std::tan(radians(30.0));
  return hexagon;
}

double radiusThrough(Point first, Point second, Point third) {
  double chord = 0.0;
  double firstDirection = 0.0;
  double secondDirection = 0.0;
  coreSurvJoin(first.y, first.x, second.y, second.x, chord, firstDirection);
  coreSurvJoin(second.y, second.x, third.y, third.x, chord, secondDirection);
  const double turn = firstDirection - secondDirection;
  return std::fabs(chord / 2.0 / std::cos((std::numbers::pi - turn) / 2.0));
}

std::array<Point, 7> hexagonOutline(const Hexagon& hexagon, Point centre) {
  const double s = hexagon.halfAcrossFlats;
  const double w = hexagon.halfAcrossCorners;
  const double t = hexagon.halfSide;
  return {centre + Point{-w, 0}, centre + Point{-t, s},  centre + Point{t, s}, centre + Point{w, 0},
          centre + Point{t, -s}, centre + Point{-t, -s}, centre + Point{-w, 0}};
}

void drawChamferCurves(const DraftingPen& pen, const Hexagon& hexagon, Point base) {
  const double w = hexagon.halfAcrossCorners;
  const double t = hexagon.halfSide;
  const std::array<std::array<double, 2>, 3> faces = {{{-w, -t}, {-t, t}, {t, w}}};
  for (const auto& [leftEdge, rightEdge] : faces) {
    const Point left = base + Point{leftEdge, hexagon.cornerHeight};
    const Point right = base + Point{rightEdge, hexagon.cornerHeight};
    const Point top = base + Point{(leftEdge + rightEdge) / 2.0, hexagon.height};
    const Point centre{top.x, top.y - radiusThrough(left, top, right)};
    pen.arc(right, centre, left, ArcSense::kCounterClockwise);
  }
}

}  // namespace ardenix
