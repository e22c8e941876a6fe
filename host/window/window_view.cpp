#include <algorithm>

#include "frame/host/core_services.h"
#include "host/drawing/pens.h"
#include "host/window/drawing_window.h"

// The view itself: what is shown, the drawing's parameters, defaults.
namespace brevan {

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

void DrawingWindow::gsZoomAll() { call("gsZoomAll"); }

void DrawingWindow::gsZoomRect(double x1, double y1, double x2, double y2) { call("gsZoomRect", {x1, y1, x2, y2}); }

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
  marks_.push_back({{x1, y1}, {x2, y2}});
  call("gsDisplayLine", {x1, y1, x2, y2, pen});
}

void DrawingWindow::gsSetDisplayToCopy() { call("gsSetDisplayToCopy"); }

void DrawingWindow::gsShowLegendBar(int shown) { call("gsShowLegendBar", {shown}); }

void DrawingWindow::gsCenterPaper(double x, double y) {
  call("gsCenterPaper", {x, y});
  if (!drawing_.sheet()) { return; }
  Sheet sheet = *drawing_.sheet();
  const Transform onPaper = toSheet(sheet, drawing_.parameters());
  const Point half = Point{sheet.width, sheet.height} * (0.5 / onPaper.xx);
  sheet.corner = Point{x, y} - half;
  drawing_.setSheet(std::move(sheet));
}

int DrawingWindow::gsAutoPerim(double, double) { throw HostFailure("Boundaries cannot be traced by this host yet."); }

void DrawingWindow::gsSetAutoperimPromptFlag(int on) { call("gsSetAutoperimPromptFlag", {on}); }

}  // namespace brevan
