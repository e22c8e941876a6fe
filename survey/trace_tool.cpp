#include "survey/trace_tool.h"

#include <optional>
#include <utility>

#include "frame/drafting/macro_texts.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/diagram_frame.h"
#include "survey/figure_arcs.h"
#include "survey/figure_report.h"
#include "survey/figure_tracing.h"
#include "survey/sheet/sheet_window.h"
#include "survey/sheet/sheet_writer.h"
#include "survey/surroundings.h"

namespace ardenix::survey {

// ---- Diagram ----------------------------------------------------------------------------------------------------

void TraceTool::makeDiagram() {
  figure_.clear();
  if (!beginJob(job_, SurveyMode::kDiagram, view())) { return; }
  view().gsClearWorkSpace();
  view().gsStartPat(macroText::kPolyline);
  view().gsExecuteMacro(macroText::kPlainLine);
  view().gsExecuteMacro(macroText::kNoWidth);
  std::optional<TracedFigure> traced = traceFigure(view());
  if (!traced) { return; }
  takeArcs(view(), traced->figure);
  if (!reportFigure(view(), traced->figure, traced->misclosure)) { return; }
  figure_ = std::move(traced->figure);
  if (CCadWindow* const diagram = openDiagramView()) { drawSheet(*diagram); }
}

CCadWindow* TraceTool::openDiagramView() {
  const auto [low, high] = extentsOf(figure_).grownBy(10.0);
  view().gsZoomRect(low.x, low.y, high.x, high.y);
  CCadWindow* const diagram = openSheetWindow(*job_, view(), *services_.mainFrame);
  if (diagram == nullptr) { return nullptr; }
  diagram->gsZoomRect(low.x, low.y, high.x, high.y);  // where nothing is drawn round the figure, the paper goes here
  loadSheetSymbols(*job_, view());
  return diagram;
}

void TraceTool::drawSheet(CCadWindow& diagram) {
  OpenedLayers layers(view(), diagram);
  copySurroundings(*job_, view(), diagram, figure_);
  diagram.gsExecuteMacro(macroText::newLayer(job_->options().diagramLayer));
  job_->setLayer(diagram.gsGetCurrentLayer());
  clipSurroundings(*job_, diagram, figure_);
  constexpr double kFigureRight = 15.0;  // beside the texts down the left edge
  setUpPaper(*job_, diagram, kFigureRight);
  const Extents block = insertTemplate(*job_, diagram, job_->titleBlock());
  SheetWriter sheet(diagram, *job_, topRightOnPaper(*job_, block));
  reportFit(sheet, block, figure_);
  if (!drawDiagramFrame(sheet, figure_)) { return services_.mainFrame->closeDrawingView(diagram); }
  layers.close(job_->layer());
  diagram.gsExecuteMacro(macroText::kClearSelection);
}

// ---- Adjusting --------------------------------------------------------------------------------------------------

void TraceTool::adjustDrawing() {
  if (!job_ && !beginJob(job_, SurveyMode::kDiagram, view())) { return; }
  // As the file says now: its options may have changed since the job was loaded.
  const int linetype = readJobOptions(TINIFile(job_->file().FileName())).lineType;
  view().gsExecuteMacro(macroText::kSnapFree);
  Point at;
  while (view().gsGetPointFromUser("Select a line to be edited (Esc to stop)", at.x, at.y) == 0) {
    PrimHeader header;
    if (view().gsNearestPrim(kAnyPrimitive, at.x, at.y) != kLinePrimitive || view().gsGetPrimHeader(header) == 0) {
      ErrorMessage("The cad entity you selected is not a line element.", &view());
      continue;
    }
    view().gsExecuteMacro(macroText::editLine(at, {header.pen, linetype, header.width}));
  }
}

std::unique_ptr<TraceTool> makeTraceTool(CCadWindow* view, const Services& services) {
  return std::make_unique<TraceTool>(view, services);
}

void tracePolyArea(TraceTool& tool) { tool.makeDiagram(); }
void adjustDrawing(TraceTool& tool) { tool.adjustDrawing(); }

}  // namespace ardenix::survey
