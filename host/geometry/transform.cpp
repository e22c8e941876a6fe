#include "host/geometry/transform.h"

namespace brevan {

bool Transform::keepsShape() const {
  const double size = std::max(std::abs(xx) + std::abs(xy), std::abs(yx) + std::abs(yy));
  const double tolerance = 1e-9 * size;
  const bool turned = std::abs(xx - yy) <= tolerance && std::abs(xy + yx) <= tolerance;
  const bool mirrored = std::abs(xx + yy) <= tolerance && std::abs(xy - yx) <= tolerance;
  return turned || mirrored;
}

Transform Transform::mirror(Point through, Point direction) {
  const double size = squaredLength(direction);
  const double cosine = (direction.x * direction.x - direction.y * direction.y) / size;  // of twice the angle
  const double sine = 2.0 * direction.x * direction.y / size;
  return {cosine, sine,    through.x - cosine * through.x - sine * through.y,
          sine,   -cosine, through.y - sine * through.x + cosine * through.y};
}

Point unitOfDegrees(double degrees) {
  const double turned = std::fmod(degrees, 360.0);
  const double positive = turned < 0.0 ? turned + 360.0 : turned;
  if (positive == 0.0) { return {1.0, 0.0}; }
  if (positive == 90.0) { return {0.0, 1.0}; }
  if (positive == 180.0) { return {-1.0, 0.0}; }
  if (positive == 270.0) { return {0.0, -1.0}; }
  return polar(1.0, radians(positive));
}

}  // namespace brevan
