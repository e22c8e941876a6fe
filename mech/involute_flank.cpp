#include "mech/involute_flank.h"

#include <algorithm>
#include <cmath>

// The rack's pitch line rolls on the pitch circle. Its depth counts from that line towards the gear's centre, u along
// the line from the middle of the rack's tooth. Rolled by an angle, a contact lies where the common normal passes
// through the point in which line and circle touch.
namespace ardenix::mech {

namespace {

constexpr double kRackRounding = 0.38;  // modules, of the rack's tip
constexpr double kClosest = 0.0008;     // modules by which an arc may leave the curve

// A rack that cuts the gear, for a module of 1.
struct Rack {
  double slope = 0.0;     // of its flanks, radians
  double rounding = 0.0;  // of its tip
  double centreDepth = 0.0;
  double centreAcross = 0.0;
};

std::optional<Rack> rackOf(double pressureAngle) {
  Rack rack{.slope = radians(pressureAngle)};
  const double tangent = std::tan(rack.slope);
  const double widest = (std::numbers::pi / 4.0 - kRootDepth * tangent) / (1.0 / std::cos(rack.slope) - tangent);
  rack.rounding = std::min(kRackRounding, widest);
  if (!(rack.slope > 0.0) || !(rack.rounding > 0.0)) { return std::nullopt; }
  rack.centreDepth = kRootDepth - rack.rounding;
  rack.centreAcross =
      std::max(std::numbers::pi / 4.0 - rack.centreDepth * tangent - rack.rounding / std::cos(rack.slope), 0.0);
  return rack;
}

// The curves that a rack cuts of a gear of module 1.
class Flank {
 public:
  Flank(const Rack& rack, int teeth) : rack_(rack), teeth_(teeth), pitchRadius_(teeth / 2.0) {}

  // From root to tip, close together.
  [[nodiscard]] std::vector<Point> points() const {
    constexpr int kSteps = 400;
    const double from = -rack_.centreAcross / pitchRadius_;
    const double join = joinAngle();
    std::vector<Point> points;
    points.reserve(2 * kSteps + 1);
    for (int i = 0; i <= kSteps; ++i) { points.push_back(filletAt(from + (join - from) * i / kSteps)); }
    const double start = length(points.back());
    const double tip = pitchRadius_ + 1.0;
    for (int i = 1; i <= kSteps; ++i) { points.push_back(involuteAt(start + (tip - start) * i / kSteps)); }
    return points;
  }

 private:
  [[nodiscard]] double baseRadius() const { return pitchRadius_ * std::cos(rack_.slope); }

  // What the rack's rounded tip cuts when it has rolled by this angle.
  [[nodiscard]] Point filletAt(double rolled) const {
    const Point toCentre{-rack_.centreDepth, rack_.centreAcross + pitchRadius_ * rolled};
    const Point contact = Point{pitchRadius_, 0} + toCentre + unit(toCentre) * rack_.rounding;
    return turned(contact, -rolled);
  }

  // Half the width of the space at a radius, as an angle.
  [[nodiscard]] double halfSpace(double radius) const {
    const auto involute = [](double angle) { return std::tan(angle) - angle; };
    const double angle = std::acos(std::min(baseRadius() / radius, 1.0));
    return std::numbers::pi / (2.0 * teeth_) + involute(angle) - involute(rack_.slope);
  }
  [[nodiscard]] Point involuteAt(double radius) const { return polar(radius, halfSpace(radius)); }

  // How far the fillet reaches into the tooth that the involute leaves.
  [[nodiscard]] double undercutAt(double rolled) const {
    const Point p = filletAt(rolled);
    return angleOf(p) - halfSpace(length(p));
  }

  // The angle rolled where the fillet gives way to the involute: where the rack's tip begins, or, undercut, where the
  // two curves cross.
  [[nodiscard]] double joinAngle() const {
    const double end = (rack_.centreDepth / std::tan(rack_.slope) - rack_.centreAcross) / pitchRadius_;
    const double deepest = rack_.centreDepth + rack_.rounding * std::sin(rack_.slope);
    if (deepest <= pitchRadius_ * std::sin(rack_.slope) * std::sin(rack_.slope)) { return end; }
    constexpr int kSteps = 2000;
    const double from = -rack_.centreAcross / pitchRadius_;
    for (int i = 1; i <= kSteps; ++i) {
      const double before = from + (end - from) * (i - 1) / kSteps;
      const double after = from + (end - from) * i / kSteps;
      const bool onInvolute = length(filletAt(before)) > baseRadius();
      if (onInvolute && undercutAt(before) > 0.0 && undercutAt(after) <= 0.0) { return crossing(before, after); }
    }
    return end;
  }
  [[nodiscard]] double crossing(double before, double after) const {
    constexpr int kHalvings = 60;
    for (int i = 0; i < kHalvings; ++i) {
      const double halfway = (before + after) / 2.0;
      (undercutAt(halfway) > 0.0 ? before : after) = halfway;
    }
    return before;
  }

  Rack rack_;
  int teeth_;
  double pitchRadius_;
};

// The arc through three points; nothing for points on a line.
std::optional<FlankArc> arcThrough(Point first, Point second, Point third) {
  const Point a = second - first;
  const Point b = third - first;
  const double area = 2.0 * cross(a, b);
  if (std::fabs(area) < 1e-12) { return std::nullopt; }
  const Point toCentre = Point{b.y * dot(a, a) - a.y * dot(b, b), a.x * dot(b, b) - b.x * dot(a, a)} / area;
  return FlankArc{first, first + toCentre, third, area < 0.0};
}

bool follows(const FlankArc& arc, const std::vector<Point>& points, size_t from, size_t to) {
  const double radius = distance(arc.centre, arc.start);
  return std::all_of(points.begin() + static_cast<std::ptrdiff_t>(from),
                     points.begin() + static_cast<std::ptrdiff_t>(to),
                     [&](Point p) { return std::fabs(distance(arc.centre, p) - radius) <= kClosest; });
}

// As few arcs as each reaches far, through every point that two of them share.
std::vector<FlankArc> arcsAlong(const std::vector<Point>& points) {
  std::vector<FlankArc> arcs;
  for (size_t from = 0; from + 2 < points.size();) {
    size_t reached = from + 2;
    auto best = arcThrough(points[from], points[from + 1], points[reached]);
    for (size_t to = reached; to < points.size(); ++to) {
      const auto arc = arcThrough(points[from], points[(from + to) / 2], points[to]);
      const bool leavesTooLittle = to + 2 == points.size();  // for another arc
      if (!arc || leavesTooLittle || !follows(*arc, points, from, to)) { continue; }
      best = arc;
      reached = to;
    }
    if (best) { arcs.push_back(*best); }
    from = reached;
  }
  return arcs;
}

}  // namespace

std::optional<std::vector<FlankArc>> involuteFlank(const GearRecord& gear) {
  const auto rack = rackOf(gear.pressureAngle);
  if (!rack || gear.teeth / 2.0 <= kRootDepth || !(gear.module > 0.0)) { return std::nullopt; }
  std::vector<FlankArc> arcs = arcsAlong(Flank(*rack, gear.teeth).points());
  for (FlankArc& arc : arcs) {
    for (Point* p : {&arc.start, &arc.centre, &arc.end}) { *p = *p * gear.module; }
  }
  return arcs;
}

}  // namespace ardenix::mech
