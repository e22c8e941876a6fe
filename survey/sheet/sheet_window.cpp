#include "survey/sheet/sheet_window.h"

#include <limits>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/drafting/sheet_axes.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

Point homeOf(CCadWindow& view) {
  view.gsExecuteMacro(macroText::kHome);
  Point at;
  view.gsGetCurrCoord(at.x, at.y);
  return at;
}

// How far the lines reach that are selected, or all lines where nothing is.
Extents linesOf(CCadWindow& view) {
  constexpr double kFar = std::numeric_limits<int>::max();
  Extents extents{{kFar, kFar}, {-kFar, -kFar}};
  const int scan = view.gsGetListHandle(kLinePrimitive, -1, 1, 0.0, 0.0, 0.0, 0.0, 0, 1);
  while (view.gsGetNextPrim(scan) > 0) {
    Point a;
    Point b;
    view.gsGetLine(a.x, a.y, b.x, b.y);
    extents.add(a);
    extents.add(b);
  }
  view.gsFreeListHandle(scan);
  return extents;
}

Extents paperOf(const JobSettings& job, CCadWindow& view) {
  view.gsExecuteMacro(macroText::enquire("PAPER", "X1 Y1 W L"));
  const Point centre{numberVariable(view, "X1"), numberVariable(view, "Y1")};
  const Point half = Point{numberVariable(view, "W"), numberVariable(view, "L")} / 2.0 * job.paperFactor();
  return {centre - half, centre + half};
}

// Sends the macro that takes a drawing file in. False, with a message, where the file is missing or damaged.
bool useFile(std::string_view kind, std::string_view path, std::string_view macro, CCadWindow& view) {
  if (path.empty()) {
    ErrorMessage(numberText::format("The settings name no %s file.", kind), &view);
    return false;
  }
  const bool found = coreFileExist(path) != 0;
  if (found && view.gsExecuteMacro(macro) != 0) { return true; }
  ErrorMessage(
      numberText::format(found ? "The %s file %s cannot be read." : "The %s file %s does not exist.", kind, path),
      &view);
  return false;
}

}  // namespace

CCadWindow* openSheetWindow(JobSettings& job, CCadWindow& view, CMDIFrameWnd& frame) {
  CCadWindow* const sheet = frame.SendUserMessage(CMDIFrameWnd::kNewDrawingView);
  if (sheet == nullptr) {
    ErrorMessage("Could not create CAD window.", &view);
    return nullptr;
  }
  DrawingParms parms;
  view.gsGetDrawingParms(parms);
  sheet->gsSetDrawingParms(parms);
  job.readParms(*sheet);
  return sheet;
}

void loadSheetSymbols(const JobSettings& job, CCadWindow& view) {
  useFile("Symbol", job.symbolFile(), macroText::paperSymbols(job.symbolFile()), view);
}

void setUpPaper(const JobSettings& job, CCadWindow& view, double shownRight) {
  view.gsZoomAll();
  const Point home = homeOf(view);
  view.gsExecuteMacro(macroText::newScale(home));
  view.gsExecuteMacro(macroText::kPortrait);
  view.gsCenterPaper(home.x - paperSign(job.parms()) * shownRight * job.paperFactor(), home.y);
  view.gsExecuteMacro(macroText::kHome);
}

Extents insertTemplate(const JobSettings& job, CCadWindow& view, const std::string& path) {
  return insertTemplate(job, view, path, homeOf(view));
}

Extents insertTemplate(const JobSettings& job, CCadWindow& view, const std::string& path, Point at) {
  if (!useFile("title block", path, macroText::load(path, at), view)) { return paperOf(job, view); }
  const double scale = job.parms().p[1];
  view.gsExecuteMacro(macroText::scale(at, scale, scale));
  const Extents block = linesOf(view);
  view.gsExecuteMacro(macroText::kClearSelection);
  // A template without a line has no corner of its own.
  return block.low.x > block.high.x ? paperOf(job, view) : block;
}

Point topRightOnPaper(const JobSettings& job, const Extents& sheet) {
  return paperSign(job.parms()) < 0.0 ? sheet.low : sheet.high;
}

}  // namespace ardenix::survey
