#pragma once

#include <cmath>
#include <numbers>

namespace brevan {

// Coordinates are drawing units, x to the right, y upwards; angles are radians counter-clockwise from
// the x axis. How a survey sheet turns the axes is a matter of showing it (see sheet.h), never of storing.
struct Point {
  double x = 0.0;
  double y = 0.0;
  friend bool operator==(const Point&, const Point&) = default;
};

inline constexpr double kPi = std::numbers::pi;

constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
constexpr Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }
constexpr double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
constexpr double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
constexpr double squaredLength(Point a) { return dot(a, a); }
inline double length(Point a) { return std::hypot(a.x, a.y); }
inline double distance(Point a, Point b) { return length(b - a); }
inline double angleOf(Point a) { return std::atan2(a.y, a.x); }
inline Point polar(double radius, double angle) { return {radius * std::cos(angle), radius * std::sin(angle)}; }
constexpr Point middle(Point a, Point b) { return {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0}; }
inline bool isFinite(Point a) { return std::isfinite(a.x) && std::isfinite(a.y); }
inline double radians(double degrees) { return degrees * (kPi / 180.0); }
inline double degrees(double radians) { return radians * (180.0 / kPi); }

// An angle brought into 0 to below 2 pi.
inline double positiveAngle(double angle) {
  const double turned = std::fmod(angle, 2.0 * kPi);
  return turned < 0.0 ? turned + 2.0 * kPi : turned;
}

}  // namespace brevan
