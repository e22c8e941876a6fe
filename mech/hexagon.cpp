#include "mech/hexagon.h"

#include <cmath>

#include "mech/outline.h"

namespace ardenix::mech {

namespace {

using Face = std::array<double, 2>;

// The left and the right edge of the three faces seen from the side: left, middle, right face.
std::array<Face, 3> faces(const Hexagon& hexagon) {
  const double w = hexagon.halfAcrossCorners;
  const double t = hexagon.halfSide;
  return {{{-w, -t}, {-t, t}, {t, w}}};
}

}  // namespace

Hexagon hexagon(double acrossFlats, double height) {
  Hexagon hexagon;
  hexagon.halfAcrossFlats = acrossFlats / 2.0;
  hexagon.halfAcrossCorners = hexagon.halfAcrossFlats / std::cos(radians(30.0));
  hexagon.halfSide = hexagon.halfAcrossFlats * std::tan(radians(30.0));
  hexagon.height = height;
  hexagon.cornerHeight = height - (hexagon.halfAcrossCorners - hexagon.halfAcrossFlats) * std::tan(radians(30.0));
  return hexagon;
}

std::array<Point, 7> hexagonOutline(const Hexagon& hexagon, Point centre) {
  const double s = hexagon.halfAcrossFlats;
  const double w = hexagon.halfAcrossCorners;
  const double t = hexagon.halfSide;
  return {centre + Point{-w, 0}, centre + Point{-t, s},  centre + Point{t, s}, centre + Point{w, 0},
          centre + Point{t, -s}, centre + Point{-t, -s}, centre + Point{-w, 0}};
}

void drawHeadOutline(const DraftingPen& pen, const Hexagon& hexagon, Point base) {
  const double s = hexagon.halfAcrossFlats;
  const double w = hexagon.halfAcrossCorners;
  const double t = hexagon.halfSide;
  const double corner = hexagon.cornerHeight;
  const double top = hexagon.height;
  pen.path({base, base + Point{-w, 0}, base + Point{-w, corner}, base + Point{-s, top}, base + Point{0, top},
            base + Point{s, top}, base + Point{w, corner}, base + Point{w, 0}, base});
  pen.line(base + Point{-t, 0}, base + Point{-t, corner});
  pen.line(base + Point{t, 0}, base + Point{t, corner});
}

void drawChamferCurves(const DraftingPen& pen, const Hexagon& hexagon, Point base) {
  for (const auto& [left, right] : faces(hexagon)) {
    drawCrown(pen, base + Point{right, hexagon.cornerHeight}, base + Point{(left + right) / 2.0, hexagon.height},
              base + Point{left, hexagon.cornerHeight});
  }
}

void drawBottomChamferCurves(const DraftingPen& pen, const Hexagon& hexagon, Point base) {
  const double corner = hexagon.height - hexagon.cornerHeight;
  for (const auto& [left, right] : faces(hexagon)) {
    drawCrown(pen, base + Point{right, corner}, base + Point{(left + right) / 2.0, 0}, base + Point{left, corner},
              ArcSense::kClockwise);
  }
}

}  // namespace ardenix::mech
