#include "arch/plan_geometry.h"

namespace ardenix::arch {

namespace {

constexpr int kQuarter = 90;
constexpr int kFullTurn = 360;

}  // namespace

bool samePoint(double x1, double y1, double x2, double y2) { return nearlyEqual(x1, x2) && nearlyEqual(y1, y2); }

Point footOfPerpendicular(Point p, Point a, Point b) {
  const Point along{b.x - a.x, b.y - a.y};
  const double squared = along.x * along.x + along.y * along.y;
  if (squared == 0.0) { return a; }
  const double t = ((p.x - a.x) * along.x + (p.y - a.y) * along.y) / squared;
  return {a.x + t * along.x, a.y + t * along.y};
}

int snapQuadrant(double degrees) {
  constexpr int kEarly = 5;
  return (static_cast<int>(degrees) + kEarly) / kQuarter * kQuarter;
}

int normaliseDegrees(int degrees) {
  const int rest = degrees % kFullTurn;
  return rest < 0 ? rest + kFullTurn : rest;
}

double addDegrees(double radians, double delta) {
  constexpr double kTurn = kFullTurn;
  constexpr double kNearlyATurn = kTurn - (kTurn * 1e-12 + 1e-12);
  double turned = degrees(radians) + delta;
  while (turned > kNearlyATurn) { turned -= kTurn; }
  return ardenix::radians(turned);
}

}  // namespace ardenix::arch
