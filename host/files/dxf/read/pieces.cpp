#include "host/files/dxf/read/pieces.h"

#include "host/files/dxf/read/curves.h"

namespace brevan {

Text placedText(Text text, const Transform& transform) {
  const Point along = unitOfDegrees(text.angle / 10.0);
  const Point baseline = transform.direction(along);
  const Point up = transform.direction({-along.y, along.x});
  const double height = length(up);
  text.at = transform(text.at);
  if (height == 0.0 || length(baseline) == 0.0) {
    text.height = 0.0;
    return text;
  }
  text.widthFactor *= length(baseline) / height;
  text.height *= height;
  double angle = degrees(angleOf(baseline));
  if (transform.mirrors()) {
    // Its letters still stand upright on the other side of its point.
    angle = degrees(angleOf(up)) - 90.0;
    const int column = (text.justification - 1) / 3;
    text.justification += 3 * (2 - 2 * column);
  }
  text.angle = std::fmod(angle + 720.0, 360.0) * 10.0;
  return text;
}

namespace {

double growthUnder(const Transform& transform) {
  return std::sqrt(std::abs(transform.xx * transform.yy - transform.xy * transform.yx));
}

}  // namespace

Hatch placedHatch(const Hatch& hatch, const Transform& transform) {
  const bool keeps = canTransform(hatch, transform);
  const Box box = hatchBounds(hatch);
  Hatch placed = transformed(keeps ? hatch : straightened(hatch, kCurveTolerance * std::max(box.width(), box.height())),
                             transform);
  placed.scale *= growthUnder(transform);
  return placed;
}

Arrow placedArrow(Arrow arrow, const Transform& transform) {
  const double scale = growthUnder(transform);
  arrow.p1 = transform(arrow.p1);
  arrow.p2 = transform(arrow.p2);
  arrow.length *= scale;
  arrow.width *= scale;
  return arrow;
}

std::vector<Point> arcChain(const Arc& arc, const Transform& transform) {
  const Point radius = arc.start - arc.centre;
  const double sweep = arcSweep(arc);
  const double turn = sweep < 0.0 ? -1.0 : 1.0;
  EllipseShape ellipse;
  ellipse.centre = transform(arc.centre);
  ellipse.major = transform.direction(radius);
  ellipse.minor = transform.direction(Point{-radius.y, radius.x} * turn);
  ellipse.to = std::abs(sweep);
  return ellipseChain(ellipse);
}

}  // namespace brevan
