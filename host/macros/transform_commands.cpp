#include <cmath>

#include "host/drawing/drawing.h"
#include "host/geometry/transform.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

// The weight that one command may add; more is a slip of the pen, and would fill the memory.
constexpr double kMostAdded = 5e6;

std::vector<PrimitiveId> changeableSelection(MacroRun& run) {
  std::vector<PrimitiveId> ids = run.window.drawing().selection();
  std::erase_if(ids, [&run](PrimitiveId id) { return !run.window.isChangeable(id); });
  return ids;
}

void refuseUnevenArcs(const Drawing& drawing, const std::vector<PrimitiveId>& ids, const Transform& transform) {
  for (const PrimitiveId id : ids) {
    if (!canTransform(drawing.find(id)->geometry, transform)) {
      throw MacroError(1, "arcs cannot be scaled differently along x and y");
    }
  }
}

void transformSelection(MacroRun& run, const Transform& transform) {
  Drawing& drawing = run.window.drawing();
  const std::vector<PrimitiveId> ids = changeableSelection(run);
  refuseUnevenArcs(drawing, ids, transform);
  for (const PrimitiveId id : ids) {
    Primitive changed = *drawing.find(id);
    changed.geometry = transformed(changed.geometry, transform);
    drawing.replace(id, std::move(changed));
  }
}

// A copy stays in its original's group, so a repeated part is one part.
PrimitiveId addTransformed(MacroRun& run, PrimitiveId original, const Transform& transform) {
  Drawing& drawing = run.window.drawing();
  Primitive copy = *drawing.find(original);
  copy.geometry = transformed(copy.geometry, transform);
  const PrimitiveId id = drawing.add(std::move(copy));
  if (run.window.selectsNew()) { drawing.select(id); }
  return id;
}

template <class TransformOf>
void repeat(MacroRun& run, const TransformOf& transformOf) {
  const double copies = run.number(0);
  if (copies <= 0.0) { return; }  // callers send n - 1 in passing
  const std::vector<PrimitiveId> ids = changeableSelection(run);
  if (ids.empty()) { return; }
  double once = 0.0;
  for (const PrimitiveId id : ids) { once += static_cast<double>(weight(run.window.drawing().find(id)->geometry)); }
  if (copies * once > kMostAdded) {
    throw MacroError(run.column(0), "REPEAT adds at most 5000000 primitives at once, a long text counting as several");
  }
  for (int copy = 1; copy <= static_cast<int>(copies); ++copy) {
    const Transform transform = transformOf(copy);
    for (const PrimitiveId id : ids) { addTransformed(run, id, transform); }
  }
}

Transform turnByDegrees(Point about, double angle) {
  const Point unit = unitOfDegrees(angle);
  return Transform::rotation(about, unit.x, unit.y);
}

// Degrees from one item to the next. Items that are to share a full turn come with an angle cut to its printed
// decimals: the gap that leaves would keep the last from meeting the first.
double angleBetween(double items, double printed) {
  constexpr double kFullTurn = 360.0;
  constexpr double kPrinted = 1e-5;
  return std::fabs(items * std::fabs(printed) - kFullTurn) <= kPrinted ? std::copysign(kFullTurn / items, printed)
                                                                       : printed;
}

void mirror(MacroRun& run, const Transform& transform, bool keepOriginal) {
  Drawing& drawing = run.window.drawing();
  if (!keepOriginal) {
    transformSelection(run, transform);
    return;
  }
  for (const PrimitiveId id : changeableSelection(run)) { drawing.select(addTransformed(run, id, transform)); }
}

}  // namespace

void rotateByAngle(MacroRun& run) { transformSelection(run, turnByDegrees(run.point(0), run.number(1))); }

// By the angle between the two directions, worked out from their components so that no angle is rounded.
void rotateOntoPoint(MacroRun& run) {
  const Point from = run.point(1) - run.point(0);
  const Point onto = run.point(2) - run.point(0);
  const double size = length(from) * length(onto);
  if (size == 0.0) { return; }  // no direction to turn by; callers send it in passing
  transformSelection(run, Transform::rotation(run.point(0), dot(from, onto) / size, cross(from, onto) / size));
}

void move(MacroRun& run) { transformSelection(run, Transform::shift(run.point(1) - run.point(0))); }

void scale(MacroRun& run) {
  for (const size_t factor : {size_t{1}, size_t{2}}) {
    if (run.number(factor) == 0.0) { throw MacroError(run.column(factor), "SCALE expects a factor other than 0"); }
  }
  transformSelection(run, Transform::scaling(run.point(0), run.number(1), run.number(2)));
}

void mirrorAxis(MacroRun& run) {
  const Point axis = run.text(1) == "Y" ? Point{0.0, 1.0} : Point{1.0, 0.0};
  mirror(run, Transform::mirror(run.point(0), axis), run.text(2) == "Y");
}

void mirrorLine(MacroRun& run) {
  const Point axis = run.point(1) - run.point(0);
  if (squaredLength(axis) == 0.0) { throw MacroError(run.column(1), "MIRROR expects two different points"); }
  mirror(run, Transform::mirror(run.point(0), axis), run.text(2) == "Y");
}

void repeatLinear(MacroRun& run) {
  const Point step = run.point(2) - run.point(1);
  repeat(run, [step](int copy) { return Transform::shift(step * static_cast<double>(copy)); });
}

void repeatPolar(MacroRun& run) {
  const Point centre = run.point(1);
  const double angle = angleBetween(run.number(0) + 1.0, run.number(2));
  repeat(run, [centre, angle](int copy) { return turnByDegrees(centre, angle * copy); });
}

}  // namespace brevan::macroHandlers
