#include <algorithm>
#include <limits>

#include "host/drawing/drawing.h"
#include "host/geometry/fillet.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

constexpr double kTrimsBoth = 2.0;
constexpr double kMeets = 0.001;  // two ends nearer than this make a corner

void checkFillet(const MacroRun& run) {
  if (run.number(0) != kTrimsBoth) { throw MacroError(run.column(0), "FILLET expects 2: both sides are trimmed"); }
  if (run.number(1) < 0.0) { throw MacroError(run.column(1), "FILLET expects a radius of 0 or more"); }
}

// Points are given beside a corner at distances that go with its radius.
double reachOf(const DrawingWindow& window, double radius) {
  return std::max(aperture(window.drawing()), 2.0 * radius);
}

void refuseLocked(const MacroRun& run, PrimitiveId id, size_t argument) {
  if (!run.window.isChangeable(id)) { throw MacroError(run.column(argument), "what lies at this point is locked"); }
}

PrimitiveId sideAt(MacroRun& run, size_t argument) {
  const PrimitiveId id = nearestCurve(run.window, run.point(argument), reachOf(run.window, run.number(1)));
  if (id == 0) { throw MacroError(run.column(argument), "no line or arc lies at this point"); }
  refuseLocked(run, id, argument);
  return id;
}

Curve curveAt(const Drawing& drawing, PrimitiveId id) { return *curveOf(*drawing.find(id)); }

void trimTo(Drawing& drawing, PrimitiveId id, const Curve& curve) {
  Primitive changed = *drawing.find(id);
  changed.geometry = geometryOf(curve);
  drawing.replace(id, std::move(changed));
}

void applyFillet(MacroRun& run, PrimitiveId first, PrimitiveId second, const std::optional<Fillet>& fillet) {
  if (!fillet) { throw MacroError(run.column(1), "no arc of this radius fits between the two sides"); }
  Drawing& drawing = run.window.drawing();
  trimTo(drawing, first, fillet->first);
  trimTo(drawing, second, fillet->second);
  if (!fillet->arc) { return; }
  Primitive arc = *drawing.find(first);
  arc.geometry = *fillet->arc;
  const GroupId group = arc.group;
  const PrimitiveId added = run.window.addDrawn(std::move(arc));
  if (drawing.find(added)->group == group) { return; }
  Primitive joined = *drawing.find(added);  // with the side that it rounds, whatever group is open
  joined.group = group;
  drawing.replace(added, std::move(joined));
}

struct Corner {
  PrimitiveId first = 0;
  PrimitiveId second = 0;
  Point at;
};

// The nearest place where two of these meet.
std::optional<Corner> nearestCorner(const Drawing& drawing, const std::vector<PrimitiveId>& ids, Point p,
                                    double reach) {
  std::optional<Corner> best;
  double bestDistance = reach;
  for (size_t i = 0; i < ids.size(); ++i) {
    const Curve first = curveAt(drawing, ids[i]);
    for (size_t j = i + 1; j < ids.size(); ++j) {
      for (const Crossing& crossing : crossings(first, curveAt(drawing, ids[j]), kMeets)) {
        const double away = distance(crossing.at, p);
        if (away > bestDistance || (best && away == bestDistance)) { continue; }
        best = Corner{ids[i], ids[j], crossing.at};
        bestDistance = away;
      }
    }
  }
  return best;
}

std::vector<PrimitiveId> curvesNear(DrawingWindow& window, Point p, double reach, GroupId group) {
  const Drawing& drawing = window.drawing();
  Box around;
  around.add(p);
  std::vector<PrimitiveId> ids = drawing.inBox(around.grownBy(reach));
  std::erase_if(ids, [&](PrimitiveId id) {
    const Primitive& primitive = *drawing.find(id);
    return (group != 0 && primitive.group != group) || !window.isChangeable(id) || !curveOf(primitive);
  });
  return ids;
}

// The corner that the open group has nearest, however far; else one within reach. The circle searched
// doubles, so a corner found inside it is the nearest.
std::optional<Corner> cornerAt(MacroRun& run, Point p, double radius) {
  const Drawing& drawing = run.window.drawing();
  const double reach = reachOf(run.window, radius);
  if (const GroupId open = groupInTheMaking(run.window)) {
    const size_t all = drawing.group(open).members.size();
    constexpr int kDoublings = 40;
    double around = reach;
    for (int doubling = 0; doubling < kDoublings; ++doubling, around *= 2.0) {
      const std::vector<PrimitiveId> near = curvesNear(run.window, p, around, open);
      const bool isWhole = near.size() == all;
      const double within = isWhole ? std::numeric_limits<double>::infinity() : around;
      if (const auto corner = nearestCorner(drawing, near, p, within)) { return corner; }
      if (isWhole) { break; }
    }
  }
  return nearestCorner(drawing, curvesNear(run.window, p, reach, 0), p, reach);
}

// Of a curve that ends at the corner its other end is kept, of one that goes on the half nearer to p.
FilletSide sideFrom(const Curve& curve, Point corner, Point p) {
  const double at = parameterOf(curve, corner);
  const double size = lengthOf(curve);
  if (at * size <= kMeets) { return {curve, pointAt(curve, 0.5)}; }
  if ((1.0 - at) * size <= kMeets) { return {curve, pointAt(curve, 0.5)}; }
  const Point foot = nearestOn(curve, p);
  return {curve, distance(foot, corner) > kMeets ? foot : pointAt(curve, at < 0.5 ? 1.0 : 0.0)};
}

Geometry arcOrError(const MacroRun& run, const std::optional<ArcShape>& arc, size_t argument, const char* rule) {
  if (!arc) { throw MacroError(run.column(argument), rule); }
  return *arc;
}

}  // namespace

void filletSides(MacroRun& run) {
  checkFillet(run);
  const PrimitiveId first = sideAt(run, 2);
  const PrimitiveId second = sideAt(run, 3);
  if (first == second) { throw MacroError(run.column(3), "FILLET expects two different sides"); }
  const Drawing& drawing = run.window.drawing();
  applyFillet(
      run, first, second,
      filletOf({curveAt(drawing, first), run.point(2)}, {curveAt(drawing, second), run.point(3)}, run.number(1)));
}

void filletCorner(MacroRun& run) {
  checkFillet(run);
  const Point p = run.point(2);
  const auto corner = cornerAt(run, p, run.number(1));
  if (!corner) { throw MacroError(run.column(2), "no two lines or arcs meet near this point"); }
  const Drawing& drawing = run.window.drawing();
  applyFillet(run, corner->first, corner->second,
              filletOf(sideFrom(curveAt(drawing, corner->first), corner->at, p),
                       sideFrom(curveAt(drawing, corner->second), corner->at, p), run.number(1)));
}

void arcOfThreePoints(MacroRun& run) {
  drawInStyle(run.window, arcOrError(run, arcThrough(run.point(0), run.point(1), run.point(2)), 2,
                                     "ARC expects three points that do not lie on one line"));
}

void arcOfTwoPoints(MacroRun& run) {
  drawInStyle(run.window, arcOrError(run, arcOfRadius(run.point(0), run.point(1), run.number(2)), 2,
                                     "ARCR expects two points no further apart than twice the radius"));
}

}  // namespace brevan::macroHandlers
