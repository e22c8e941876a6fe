#pragma once

#include <cmath>
#include <numbers>

namespace ardenix {

// Drawing units, x to the right, y upwards.
struct Point {
  double x = 0.0;
  double y = 0.0;
};

inline Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }

// Equal but for what rounding leaves: within |b| x 1e-12 + 1e-12.
inline bool nearlyEqual(double a, double b) { return std::fabs(a - b) <= std::fabs(b) * 1e-12 + 1e-12; }
inline bool nearlyEqual(Point a, Point b) { return nearlyEqual(a.x, b.x) && nearlyEqual(a.y, b.y); }

inline bool isOrigin(Point p) { return nearlyEqual(p, Point{}); }

inline double radians(double degrees) { return degrees * std::numbers::pi / 180.0; }
inline double degrees(double radians) { return radians * 180.0 / std::numbers::pi; }

}  // namespace ardenix
