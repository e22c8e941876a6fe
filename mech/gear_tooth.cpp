#include "mech/gear_tooth.h"

#include <cmath>

namespace ardenix::mech {

namespace {

// The circle of a flank.
struct FlankCircle {
  Point centre;
  double radius = 0.0;
};

// The flank is made to fit the involute a third of the tooth's depth below the tip: there its normal touches the base
// circle, and its centre lies a quarter of that tangent from where it touches.
FlankCircle flankCircle(double baseRadius, double fitRadius) {
  const double slope = std::acos(baseRadius / fitRadius);
  const double across = baseRadius * baseRadius / fitRadius;
  const Point touching{across, -std::sqrt(baseRadius * baseRadius - across * across)};
  const double tangent = std::sqrt(fitRadius * fitRadius - baseRadius * baseRadius);
  return {touching + tangent / 4.0 * Point{std::sin(slope), std::cos(slope)}, 0.75 * tangent};
}

struct FlankPoint {
  Point at;
  bool reached = true;  // else the circle of this radius is crossed nowhere
};

// Where the flank crosses a circle about the gear's centre, by the triangle of that centre, the flank's and the
// crossing.
FlankPoint onFlank(const FlankCircle& flank, double radius) {
  const double away = length(flank.centre);
  const double half = (radius + away + flank.radius) / 2.0;
  const double square = (half - away) * (half - radius) / (half * (half - flank.radius));
  const double angle = angleOf(flank.centre) + 2.0 * std::atan(std::sqrt(std::fabs(square)));
  return {polar(radius, angle), square > -1e-12};
}

bool isFinite(Point p) { return std::isfinite(p.x) && std::isfinite(p.y); }

}  // namespace

std::optional<GearTooth> gearTooth(const GearRecord& gear) {
  constexpr double kLargestAngle = 90.0;
  if (gear.teeth < 1 || !(gear.module > 0.0) || gear.pressureAngle >= kLargestAngle) { return std::nullopt; }
  const double pitchRadius = gear.teeth * gear.module / 2.0;
  GearTooth tooth;
  tooth.tipRadius = pitchRadius + gear.module;
  tooth.rootRadius = pitchRadius - kRootDepth * gear.module;
  tooth.filletRadius = std::numbers::pi * gear.module / 10.0;
  tooth.pitchAngle = 360.0 / gear.teeth;

  const double fitRadius = tooth.tipRadius - (tooth.tipRadius - tooth.rootRadius) / 3.0;
  const FlankCircle flank = flankCircle(pitchRadius * std::cos(radians(gear.pressureAngle)), fitRadius);
  const FlankPoint tip = onFlank(flank, tooth.tipRadius);
  const FlankPoint pitch = onFlank(flank, pitchRadius);
  const FlankPoint root = onFlank(flank, tooth.rootRadius);
  tooth.tip = tip.at;
  tooth.pitch = pitch.at;
  tooth.root = root.at;

  const double quarter = radians(tooth.pitchAngle / 4.0);
  const double space = angleOf(tooth.pitch) + quarter;
  const double middle = angleOf(tooth.pitch) - quarter;
  tooth.middleOfRoot = polar(tooth.rootRadius, space);
  tooth.middleOfSpace = polar(pitchRadius, space);
  tooth.middleOfTip = polar(tooth.tipRadius, middle);
  if (!isFinite(tooth.tip) || !isFinite(tooth.pitch) || !isFinite(tooth.root)) { return std::nullopt; }
  tooth.sound = tip.reached && pitch.reached && root.reached && tooth.rootRadius > 0.0 && angleOf(tooth.tip) > middle &&
                angleOf(tooth.root) < space;
  return tooth;
}

}  // namespace ardenix::mech
