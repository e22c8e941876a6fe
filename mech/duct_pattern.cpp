#include "mech/duct_pattern.h"

#include <cmath>

namespace ardenix::mech {

namespace {

constexpr size_t kPoints = 4;  // of a quarter of the round end

// The angle between two sides of a triangle by the third; not a number where there is none.
double angleBetween(double side, double other, double opposite) {
  return std::acos((side * side + other * other - opposite * opposite) / (2.0 * side * other));
}

// The true lengths from the rectangle's corner to the points of the quarter, each 30 degrees further from the long
// edge.
std::array<double, kPoints> trueLengths(const Duct& duct, double along) {
  std::array<double, kPoints> lengths{};
  for (size_t i = 0; i < kPoints; ++i) {
    const double angle = radians(90.0 - 30.0 * static_cast<double>(i));
    const double x = along - duct.radius * std::cos(angle);
    const double y = duct.width / 2.0 - duct.radius * std::sin(angle);
    lengths[i] = std::sqrt(x * x + y * y + duct.height * duct.height);
  }
  return lengths;
}

// The triangles beside each other, fanned out from the corner: `along` is how far the round end's centre lies from it.
std::optional<DuctHalf> half(const Duct& duct, double along) {
  const double arc = std::numbers::pi * duct.radius / 6.0;  // of 30 degrees, laid out as a chord
  const std::array<double, kPoints> lengths = trueLengths(duct, along);
  const double slant = std::hypot(duct.height, duct.width / 2.0 - duct.radius);
  DuctHalf points;
  double angle = std::atan(slant / along);
  points[0] = {along, slant};
  for (size_t i = 1; i < kPoints; ++i) {
    angle += angleBetween(lengths[i - 1], lengths[i], arc);
    points[i] = polar(lengths[i], angle);
  }
  angle += std::acos(duct.width / 2.0 / lengths[kPoints - 1]);
  points[kPoints] = polar(duct.width / 2.0, angle);
  if (!std::isfinite(angle)) { return std::nullopt; }
  return points;
}

}  // namespace

std::optional<DuctPattern> ductPattern(const Duct& duct) {
  const double left = duct.length / 2.0 - duct.offset;
  if (!(duct.length > 0.0 && duct.width > 0.0 && duct.radius > 0.0 && left > 0.0)) { return std::nullopt; }
  const auto leftHalf = half(duct, left);
  const auto rightHalf = half(duct, duct.length / 2.0 + duct.offset);
  if (!leftHalf || !rightHalf) { return std::nullopt; }
  return DuctPattern{*leftHalf, *rightHalf};
}

}  // namespace ardenix::mech
