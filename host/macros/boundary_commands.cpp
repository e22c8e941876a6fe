#include "host/drawing/area_units.h"
#include "host/drawing/boundary_map.h"
#include "host/macros/command.h"
#include "host/macros/handlers.h"
#include "host/macros/macro_drawing.h"
#include "host/window/drawing_window.h"

namespace brevan::macroHandlers {

namespace {

// How far a line may leave the arc that it stands for, millimetres on paper.
constexpr double kChordError = 0.05;

void drawLoop(DrawingWindow& window, const Loop& loop) {
  BoundaryMap& map = window.boundaries();
  const double tolerance = kChordError * window.drawing().parameters().paperMillimetre();
  map.beginCopying();
  for (const Curve& curve : loop) {
    const std::vector<Point> chain = flattened(curve, tolerance);
    for (size_t at = 0; at + 1 < chain.size(); ++at) { drawInStyle(window, Line{chain[at], chain[at + 1]}); }
  }
  map.endCopying();
}

}  // namespace

void tracePerimeter(MacroRun& run) {
  if (run.window.gsAutoPerim(run.point(1).x, run.point(1).y) == 0) {
    throw MacroError(run.column(1), "no closed boundary surrounds this point");
  }
  drawLoop(run.window, run.window.macroState().boundary.loop);
}

void queryBoundary(MacroRun& run) {
  const Loop& loop = run.window.macroState().boundary.loop;
  const Parameters& parameters = run.window.drawing().parameters();
  const AreaUnit unit = areaUnit(parameters.areaUnit());
  const double side = parameters.unit() / unit.millimetres;
  const Point inside = loop.empty() ? Point{} : pointInside(loop);
  const double values[] = {std::abs(signedArea(loop)) * side * side, perimeterOf(loop) * side, inside.x, inside.y};
  for (size_t at = 0; at < std::size(values); ++at) { run.variables.setNumber(run.text(at), values[at]); }
}

}  // namespace brevan::macroHandlers
