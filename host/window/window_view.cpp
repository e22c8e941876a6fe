#include <algorithm>

#include "frame/host/core_services.h"
#include "host/drawing/boundary_map.h"
#include "host/drawing/pens.h"
#include "host/window/drawing_window.h"

// The view itself: what is shown, the drawing's parameters, defaults.
namespace brevan {

namespace {

Box windowBetween(Point corner, Point opposite) {
  Box box;
  box.add(corner);
  box.add(opposite);
  return box;
}

}  // namespace

void DrawingWindow::gsClearSelection() {
  drawing_.clearSelection();
  call("gsClearSelection");
}

void DrawingWindow::gsClearWorkSpace() {
  marks_.clear();
  call("gsClearWorkSpace");
}

void DrawingWindow::gsSetViewDirty(int) { call("gsSetViewDirty", {1}); }

void DrawingWindow::gsRefresh() {
  marks_.clear();
  call("gsRefresh");
}

void DrawingWindow::zoomTo(const Box& box) {
  if (zoom_) { zoom_(box); }
}

void DrawingWindow::gsZoomAll() {
  zoomTo({});
  const Box extents = drawing_.extents();
  if (!extents.empty()) { macroState_.seen = {extents.centre()}; }
  call("gsZoomAll");
}

void DrawingWindow::gsZoomRect(double x1, double y1, double x2, double y2) {
  zoomTo(windowBetween({x1, y1}, {x2, y2}));
  macroState_.seen = {middle({x1, y1}, {x2, y2})};
  call("gsZoomRect", {x1, y1, x2, y2});
}

void DrawingWindow::goHome() {
  const std::optional<SeenPlace>& seen = macroState_.seen;
  if (drawing_.sheet()) { return cursor_.setPosition(sheetCentre(*drawing_.sheet(), drawing_.parameters())); }
  if (!seen) {
    const Box extents = drawing_.extents();
    return cursor_.setPosition(extents.empty() ? Point{} : extents.centre());
  }
  if (seen->byUser) { call(kSeenCall, {seen->centre.x, seen->centre.y}); }
  cursor_.setPosition(seen->centre);
}

void DrawingWindow::gsGetDrawingParms(DrawingParms& parms) {
  static_assert(DrawingParms::kCount == Parameters::kCount);
  const auto& all = drawing_.parameters().all;
  std::copy(all.begin(), all.end(), std::begin(parms.p) + 1);
}

void DrawingWindow::gsSetDrawingParms(const DrawingParms& parms) {
  Parameters parameters;
  std::copy(std::begin(parms.p) + 1, std::end(parms.p), parameters.all.begin());
  parameters.all[5] = parameters.all[6];  // P6 is P7 always; callers that change one of them mean P7
  try {
    drawing_.setParameters(parameters);
  } catch (const RefusedChange& refused) { throw HostFailure(refused.what()); }
  call("gsSetDrawingParms", {parameters.scale(), parameters.unit()});
}

void DrawingWindow::gsStartPat(std::string_view name) {
  openGroup_.begin(name);
  call("gsStartPat", {name});
}

void DrawingWindow::gsEndFunc() { call("gsEndFunc"); }

int DrawingWindow::gsGetCurrPen() { return style_.pen; }

unsigned DrawingWindow::gsGetPenColor(int pen) { return penColour(pen, Ground::kPaper); }

int DrawingWindow::gsGetDimDefStyle() { return dimensionStyle_; }

void DrawingWindow::gsSetDimDefStyle(int style) {
  dimensionStyle_ = style;
  call("gsSetDimDefStyle", {style});
}

void DrawingWindow::gsGetTextDefaultParams(TextDefaults& defaults) { defaults = textDefaults_; }

void DrawingWindow::gsSetDrawMode(int mode) { call("gsSetDrawMode", {mode}); }

void DrawingWindow::gsDisplayLine(double x1, double y1, double x2, double y2, int pen) {
  marks_.push_back({{{x1, y1}, {x2, y2}}, pen});
  call("gsDisplayLine", {x1, y1, x2, y2, pen});
}

void DrawingWindow::gsSetDisplayToCopy() { call("gsSetDisplayToCopy"); }

void DrawingWindow::gsShowLegendBar(int shown) {
  services_.user.showSideBar(shown != 0);
  call("gsShowLegendBar", {shown});
}

void DrawingWindow::gsCenterPaper(double x, double y) {
  call("gsCenterPaper", {x, y});
  if (!isFinite(Point{x, y})) { throw HostFailure("The paper cannot be centred on a coordinate that is not finite."); }
  macroState_.paper.centre = Point{x, y};
  macroState_.paper.wanted = true;
  fitPaper();
}

namespace {

// The smallest sheet that holds the extents, A4 first; half a millimetre over is the frame line's own.
Sheet smallestSheet(const Box& extents, const Parameters& parameters, bool portrait) {
  constexpr double kFrameLine = 0.5;
  const double millimetre = parameters.paperMillimetre();
  Sheet sheet;
  for (const char* name : {"A4", "A3", "A2", "A1", "A0"}) {
    sheet = *isoSheet(name, portrait);
    const bool holds = extents.width() / millimetre <= sheet.width + kFrameLine &&
                       extents.height() / millimetre <= sheet.height + kFrameLine;
    if (holds) { break; }
  }
  return sheet;
}

}  // namespace

void DrawingWindow::fitPaper() {
  if (!macroState_.paper.wanted) { return; }
  const Box extents = drawing_.extents();
  Sheet sheet = smallestSheet(extents, drawing_.parameters(), macroState_.paper.portrait);
  const Point centre = macroState_.paper.centre.value_or(extents.empty() ? Point{} : extents.centre());
  centreSheet(sheet, drawing_.parameters(), centre);
  drawing_.setSheet(std::move(sheet));
}

void DrawingWindow::gsFitPaper(double x1, double y1, double x2, double y2) {
  call("gsFitPaper", {x1, y1, x2, y2});
  const Box held = windowBetween({x1, y1}, {x2, y2});
  Sheet sheet = smallestSheet(held, drawing_.parameters(), held.height() > held.width());
  centreSheet(sheet, drawing_.parameters(), held.centre());
  drawing_.setSheet(std::move(sheet));
}

void DrawingWindow::setDrawing(Drawing drawing) {
  macroState_.boundaries = nullptr;  // it listens to the drawing that goes
  drawing_ = std::move(drawing);
}

BoundaryMap& DrawingWindow::boundaries() {
  if (macroState_.boundaries == nullptr) { macroState_.boundaries = std::make_unique<BoundaryMap>(drawing_); }
  return *macroState_.boundaries;
}

int DrawingWindow::gsAutoPerim(double x, double y) {
  call("gsAutoPerim", {x, y});
  const Point at{x, y};
  Loop& loop = macroState_.boundary.loop;
  loop = boundaries().around(at);
  // A point on the boundary itself lies on neither side of it.
  const auto passes = [at](const Curve& curve) { return distance(nearestOn(curve, at), at) <= BoundaryMap::kJoin; };
  if (std::ranges::any_of(loop, passes)) { loop.clear(); }
  return loop.empty() ? 0 : 1;
}

void DrawingWindow::gsSetAutoperimPromptFlag(int on) {
  macroState_.promptsForPerimeter = on != 0;
  call("gsSetAutoperimPromptFlag", {on});
}

}  // namespace brevan
