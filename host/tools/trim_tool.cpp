#include <algorithm>

#include "host/macros/macro_drawing.h"
#include "host/tools/tool_handlers.h"
#include "host/tools/tool_prompts.h"
#include "host/window/drawing_window.h"

namespace brevan::toolHandlers {

namespace {

// What is nearer than this, in drawing units, meets; coordinates come printed with three decimals.
constexpr double kMeets = 0.001;

// Where the visible neighbours cross a curve, as its parameters in order, its ends left out.
std::vector<double> crossingParameters(const Drawing& drawing, PrimitiveId id, const Curve& curve) {
  std::vector<double> parameters;
  for (const PrimitiveId other : drawing.inBox(boundsOf(curve).grownBy(kMeets))) {
    const Primitive& neighbour = *drawing.find(other);
    const auto crossing = curveOf(neighbour);
    if (other == id || !crossing || !drawing.layer(neighbour.layer)->visible) { continue; }
    for (const Crossing& meeting : crossings(curve, *crossing, kMeets)) { parameters.push_back(meeting.first); }
  }
  const double nearEnd = kMeets / std::max(lengthOf(curve), kMeets);
  std::erase_if(parameters, [&](double t) { return !isClosed(curve) && (t < nearEnd || t > 1.0 - nearEnd); });
  std::sort(parameters.begin(), parameters.end());
  const auto same = [nearEnd](double a, double b) { return b - a < nearEnd; };
  parameters.erase(std::unique(parameters.begin(), parameters.end(), same), parameters.end());
  return parameters;
}

// What is left of a curve when the piece at a parameter goes.
std::vector<Curve> remains(const Curve& curve, const std::vector<double>& cuts, double at) {
  const auto after = std::upper_bound(cuts.begin(), cuts.end(), at);
  if (isClosed(curve)) {
    if (cuts.size() < 2) { return {}; }
    const bool wraps = after == cuts.begin() || after == cuts.end();
    // The piece that goes lies between two neighbouring cuts; the other way round stays.
    if (wraps) { return {pieceOf(curve, cuts.front(), cuts.back())}; }
    return {pieceOf(curve, *after, *std::prev(after) + 1.0)};
  }
  std::vector<Curve> kept;
  if (after != cuts.begin()) { kept.push_back(pieceOf(curve, 0.0, *std::prev(after))); }
  if (after != cuts.end()) { kept.push_back(pieceOf(curve, *after, 1.0)); }
  return kept;
}

void trimAt(DrawingWindow& window, Point at) {
  Drawing& drawing = window.drawing();
  const PrimitiveId id = nearestCurve(window, at, aperture(drawing));
  if (id == 0) {
    window.gsSetStatus("There is no line or arc here.");
    return;
  }
  const Primitive before = *drawing.find(id);
  if (drawing.layer(before.layer)->locked) {
    window.gsSetStatus("The layer \"" + drawing.layer(before.layer)->name + "\" is locked.");
    return;
  }
  const Curve curve = *curveOf(before);
  const std::vector<double> cuts = crossingParameters(drawing, id, curve);
  if (cuts.size() < (isClosed(curve) ? 2U : 1U)) {
    window.gsSetStatus("Nothing crosses it, so nothing can be cut off.");
    return;
  }
  const double where = parameterOf(curve, nearestOn(curve, at));
  drawing.remove(id);
  for (const Curve& piece : remains(curve, cuts, where)) {
    Primitive kept = before;
    kept.geometry = geometryOf(piece);
    drawing.add(std::move(kept));
  }
}

}  // namespace

void trim(DrawingWindow& window) {
  while (const auto at = askPoint(window, "Indicate the piece to cut off (space bar to stop)")) {
    trimAt(window, *at);
    window.gsRefresh();
  }
}

}  // namespace brevan::toolHandlers
