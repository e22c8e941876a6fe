#include "survey/diagram_sheet.h"

#include <algorithm>
#include <limits>

#include "frame/drafting/macro_texts.h"
#include "frame/drafting/macro_values.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/figure.h"

namespace ardenix::survey {

namespace {

Point homeOf(CCadWindow& view) {
  view.gsExecuteMacro(macroText::kHome);
  Point at;
  view.gsGetCurrCoord(at.x, at.y);
  return at;
}

// The top right corner on paper of what lies between two corners of the drawing.
Point topRight(const JobSettings& job, const Extents& extents) {
  return job.parms().p[10] != 0.0 ? extents.low : extents.high;
}

// Of the lines that are selected; of all lines where nothing is.
Extents linesOf(CCadWindow& view) {
  constexpr double kFar = std::numeric_limits<int>::max();
  Extents extents{{kFar, kFar}, {-kFar, -kFar}};
  const int scan = view.gsGetListHandle(kLinePrimitive, -1, 1, 0.0, 0.0, 0.0, 0.0, 0, 1);
  while (view.gsGetNextPrim(scan) > 0) {
    Point a;
    Point b;
    view.gsGetLine(a.x, a.y, b.x, b.y);
    extents.low = {std::min({extents.low.x, a.x, b.x}), std::min({extents.low.y, a.y, b.y})};
    extents.high = {std::max({extents.high.x, a.x, b.x}), std::max({extents.high.y, a.y, b.y})};
  }
  view.gsFreeListHandle(scan);
  return extents;
}

Extents paperOf(const JobSettings& job, CCadWindow& view) {
  view.gsExecuteMacro(macroText::enquire("PAPER", "X1 Y1 W L"));
  const Point centre{numberVariable(view, "X1"), numberVariable(view, "Y1")};
  const double halfWidth = numberVariable(view, "W") / 2.0 * job.paperFactor();
  const double halfHeight = numberVariable(view, "L") / 2.0 * job.paperFactor();
  return {{centre.x - halfWidth, centre.y - halfHeight}, {centre.x + halfWidth, centre.y + halfHeight}};
}

}  // namespace

void setUpPaper(const JobSettings& job, CCadWindow& view) {
  view.gsZoomAll();
  const Point home = homeOf(view);
  view.gsExecuteMacro(macroText::newScale(home));
  view.gsExecuteMacro(macroText::kPortrait);
  // The figure stands right of the paper's middle, beside the texts down the left edge.
  constexpr double kFigureRight = 15.0;  // millimetres on paper
  const double left = (job.parms().p[10] == 0.0 ? -1.0 : 1.0) * kFigureRight * job.paperFactor();
  view.gsCenterPaper(home.x + left, home.y);
  view.gsExecuteMacro(macroText::kHome);
}

Point insertTitleBlock(const JobSettings& job, CCadWindow& view) {
  const Point at = homeOf(view);
  if (coreFileExist(job.titleBlock()) == 0) {
    view.gsSetStatus(numberText::format("The title block file %s does not exist.", std::string_view(job.titleBlock())));
    return topRight(job, paperOf(job, view));
  }
  view.gsExecuteMacro(macroText::load(job.titleBlock(), at));
  const double scale = job.parms().p[1];
  view.gsExecuteMacro(macroText::scale(at, scale, scale));
  const Extents block = linesOf(view);
  view.gsExecuteMacro(macroText::kClearSelection);
  // A title block without a line has no corner of its own.
  return topRight(job, block.low.x > block.high.x ? paperOf(job, view) : block);
}

}  // namespace ardenix::survey
