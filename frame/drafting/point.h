#pragma once

#include <cmath>
#include <numbers>

namespace ardenix {

// A point, or the way from one to another. Drawing units, x to the right, y upwards.
struct Point {
  double x = 0.0;
  double y = 0.0;
};

inline Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
inline Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
inline Point operator-(Point a) { return {-a.x, -a.y}; }
inline Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }
inline Point operator*(double factor, Point a) { return a * factor; }
inline Point operator/(Point a, double divisor) { return {a.x / divisor, a.y / divisor}; }

inline Point middle(Point a, Point b) { return {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0}; }
inline double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
// Above 0 where b points to the left of a.
inline double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
inline double length(Point a) { return std::hypot(a.x, a.y); }
inline double distance(Point a, Point b) { return length(b - a); }
// Turned by 90 degrees counter-clockwise.
inline Point quarterTurned(Point a) { return {-a.y, a.x}; }
// Turned about the origin, radians counter-clockwise.
inline Point turned(Point a, double angle) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  return {a.x * cosine - a.y * sine, a.x * sine + a.y * cosine};
}
// The way of this length at an angle in radians, counter-clockwise from the x axis.
inline Point polar(double length, double angle) { return {length * std::cos(angle), length * std::sin(angle)}; }
// The angle of a way in radians, -pi to pi, counter-clockwise from the x axis; 0 for none.
inline double angleOf(Point a) { return std::atan2(a.y, a.x); }
// The way of length 1 in the direction of another, which has a length.
inline Point unit(Point a) { return a / length(a); }

// Equal but for what rounding leaves: within |b| x 1e-12 + 1e-12.
inline bool nearlyEqual(double a, double b) { return std::fabs(a - b) <= std::fabs(b) * 1e-12 + 1e-12; }
inline bool nearlyEqual(Point a, Point b) { return nearlyEqual(a.x, b.x) && nearlyEqual(a.y, b.y); }

inline bool isOrigin(Point p) { return nearlyEqual(p, Point{}); }

inline double radians(double degrees) { return degrees * std::numbers::pi / 180.0; }
inline double degrees(double radians) { return radians * 180.0 / std::numbers::pi; }

}  // namespace ardenix
