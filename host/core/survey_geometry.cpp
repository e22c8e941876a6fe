#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <optional>

#include "frame/host/core_services.h"

namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;

struct Crossing {
  PNT_2D_record point;
  bool onFirst = false;
  bool onSecond = false;
};

// Whether a position along a segment (0 at its start, 1 at its end) lies on it, allowing for the
// rounding of coordinates far from the origin.
bool liesOn(double position, double length, double magnitude) {
  const double tolerance = 1e-9 + 1e-14 * magnitude / length;
  return position >= -tolerance && position <= 1.0 + tolerance;
}

// Worked out relative to the first point, so that large survey coordinates keep their digits.
std::optional<Crossing> crossingOf(PNT_2D_record a, PNT_2D_record b, PNT_2D_record c, PNT_2D_record d) {
  constexpr double kParallelSine = 1e-12;
  const double ux = b.x - a.x;
  const double uy = b.y - a.y;
  const double vx = d.x - c.x;
  const double vy = d.y - c.y;
  const double lengthU = std::hypot(ux, uy);
  const double lengthV = std::hypot(vx, vy);
  const double cross = ux * vy - uy * vx;
  if (!(std::abs(cross) > kParallelSine * lengthU * lengthV) || !std::isfinite(cross)) { return std::nullopt; }
  const double t = ((c.x - a.x) * vy - (c.y - a.y) * vx) / cross;
  const double s = ((c.x - a.x) * uy - (c.y - a.y) * ux) / cross;
  const double magnitude = std::max({std::abs(a.x), std::abs(a.y), std::abs(b.x), std::abs(b.y), std::abs(c.x),
                                     std::abs(c.y), std::abs(d.x), std::abs(d.y)});
  Crossing crossing{{a.x + t * ux, a.y + t * uy}, liesOn(t, lengthU, magnitude), liesOn(s, lengthV, magnitude)};
  if (!std::isfinite(crossing.point.x) || !std::isfinite(crossing.point.y)) { return std::nullopt; }
  return crossing;
}

}  // namespace

void coreSurvJoin(double y1, double x1, double y2, double x2, double& distance, double& direction) {
  constexpr double kFullCircle = 2.0 * std::numbers::pi;
  distance = std::hypot(x2 - x1, y2 - y1);
  direction = std::atan2(x2 - x1, y2 - y1);
  if (direction < 0.0) { direction += kFullCircle; }
  // A direction a hair left of +y rounds up to the full circle, and a signed zero is zero.
  if (distance == 0.0 || direction >= kFullCircle || direction == 0.0) { direction = 0.0; }
}

void coreSurvPolar(double y, double x, double direction, double distance, double& y2, double& x2) {
  y2 = y + distance * std::cos(direction);
  x2 = x + distance * std::sin(direction);
}

PNT_2D_record coreIntersectionLines(double x1, double y1, double x2, double y2, double x3, double y3, double x4,
                                    double y4, int& flag1, int& flag2) {
  const std::optional<Crossing> crossing = crossingOf({x1, y1}, {x2, y2}, {x3, y3}, {x4, y4});
  flag1 = crossing && crossing->onFirst ? 1 : 0;
  flag2 = crossing && crossing->onSecond ? 1 : 0;
  return crossing ? crossing->point : PNT_2D_record{};
}

int coreIntOnLines(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4, double& x,
                   double& y) {
  const std::optional<Crossing> crossing = crossingOf({x1, y1}, {x2, y2}, {x3, y3}, {x4, y4});
  if (!crossing || !crossing->onFirst || !crossing->onSecond) { return 0; }
  x = crossing->point.x;
  y = crossing->point.y;
  return 1;
}

// Read as whole millionths of a second, because 10.3 is a little less than ten degrees thirty minutes in
// binary and must not become 29 minutes and 99 seconds.
double coreDmsRad(double degreesMinutesSeconds) {
  constexpr double kLargest = 1e8;
  constexpr long long kSecond = 1'000'000;
  constexpr long long kMinute = 100 * kSecond;
  constexpr long long kDegree = 100 * kMinute;
  const double size = std::abs(degreesMinutesSeconds);
  if (!(size < kLargest)) { return degreesMinutesSeconds * kRadiansPerDegree; }
  const long long digits = std::llround(size * static_cast<double>(kDegree));
  const long long wholeDegrees = digits / kDegree;
  const long long wholeMinutes = digits % kDegree / kMinute;
  const double degrees = static_cast<double>(wholeDegrees) + static_cast<double>(wholeMinutes) / 60.0 +
                         static_cast<double>(digits % kMinute) / static_cast<double>(kSecond) / 3600.0;
  return std::copysign(degrees, degreesMinutesSeconds) * kRadiansPerDegree;
}

double coreRadDms(double radians) {
  constexpr double kLargest = 1e8;
  constexpr long long kMinute = 6'000;  // in hundredths of a second
  constexpr long long kDegree = 60 * kMinute;
  const double size = std::abs(radians / kRadiansPerDegree);
  if (!(size < kLargest)) { return radians / kRadiansPerDegree; }
  const long long hundredths = std::llround(size * static_cast<double>(kDegree));
  const long long digits =
      hundredths / kDegree * 1'000'000 + hundredths % kDegree / kMinute * 10'000 + hundredths % kMinute;
  const double value = static_cast<double>(digits) / 1e6;
  return radians < 0.0 && digits != 0 ? -value : value;
}

// 1.005 is a little less in binary; the few units in the last place added make it round as it is written.
double coreDoubleRound(double value, int decimals) {
  constexpr double kAllDigits = 4503599627370496.0;  // 2^52: from here on every number is whole
  const double scale = std::pow(10.0, std::abs(decimals));
  const double scaled = decimals >= 0 ? value * scale : value / scale;
  if (!std::isfinite(scaled) || !std::isfinite(scale) || std::abs(scaled) >= kAllDigits) { return value; }
  const double whole = std::round(scaled * (1.0 + 4.0 * std::numeric_limits<double>::epsilon()));
  const double rounded = decimals >= 0 ? whole / scale : whole * scale;
  return rounded == 0.0 ? 0.0 : rounded;
}
