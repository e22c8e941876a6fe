#pragma once

#include "host/geometry/point.h"

namespace brevan {

// An affine map: x' = xx x + xy y + dx, y' = yx x + yy y + dy.
struct Transform {
  double xx = 1.0, xy = 0.0, dx = 0.0;
  double yx = 0.0, yy = 1.0, dy = 0.0;

  [[nodiscard]] Point operator()(Point p) const { return {xx * p.x + xy * p.y + dx, yx * p.x + yy * p.y + dy}; }
  [[nodiscard]] Point direction(Point p) const { return {xx * p.x + xy * p.y, yx * p.x + yy * p.y}; }
  [[nodiscard]] bool mirrors() const { return xx * yy - xy * yx < 0.0; }
  // Its determinant must not be 0.
  [[nodiscard]] Transform inverted() const {
    const double determinant = xx * yy - xy * yx;
    const Transform linear{yy / determinant, -xy / determinant, 0.0, -yx / determinant, xx / determinant, 0.0};
    const Point shift = linear.direction({dx, dy});
    return {linear.xx, linear.xy, -shift.x, linear.yx, linear.yy, -shift.y};
  }
  // True when circles stay circles.
  [[nodiscard]] bool keepsShape() const;

  static Transform shift(Point by) { return {1.0, 0.0, by.x, 0.0, 1.0, by.y}; }
  static Transform rotation(Point about, double angle) { return rotation(about, std::cos(angle), std::sin(angle)); }
  // By the angle of a unit vector (cosine, sine).
  static Transform rotation(Point about, double cosine, double sine) {
    return {cosine, -sine,  about.x - cosine * about.x + sine * about.y,
            sine,   cosine, about.y - sine * about.x - cosine * about.y};
  }
  static Transform scaling(Point about, double factorX, double factorY) {
    return {factorX, 0.0, about.x * (1.0 - factorX), 0.0, factorY, about.y * (1.0 - factorY)};
  }
  // About the endless line through a point in a direction of any length above 0.
  static Transform mirror(Point through, Point direction);
};

// First inner, then outer.
inline Transform operator*(const Transform& outer, const Transform& inner) {
  const Point shift = outer({inner.dx, inner.dy});
  return {outer.xx * inner.xx + outer.xy * inner.yx, outer.xx * inner.xy + outer.xy * inner.yy, shift.x,
          outer.yx * inner.xx + outer.yy * inner.yx, outer.yx * inner.xy + outer.yy * inner.yy, shift.y};
}

// Degrees whose sine and cosine are exact at the quarter turns, so that a part turned by 90 degrees stays
// on its grid.
Point unitOfDegrees(double degrees);

}  // namespace brevan
