#include "survey/plan/sheet_tool.h"

#include <utility>

namespace ardenix::survey {

JobSettings* SheetTool::begin() {
  view().gsStartPat("");  // what is drawn here belongs to no part that an earlier command left open
  return beginJob(job_, SurveyMode::kGeneralPlan, view()) ? job_.get() : nullptr;
}

std::optional<SheetTool::TracedArea> SheetTool::lastFigure() const {
  return figuresView_.lock() == view().life().lock() ? lastFigure_ : std::nullopt;
}

void SheetTool::setLastFigure(TracedArea figure) {
  lastFigure_ = std::move(figure);
  figuresView_ = view().life();
}

std::unique_ptr<SheetTool> makeSheetTool(CCadWindow* view, const Services& services) {
  return std::make_unique<SheetTool>(view, services);
}

std::optional<Point> askHeadingPlace(CCadWindow& view) {
  Point at;
  if (view.gsGetPointFromUser("Indicate position for heading", at.x, at.y) != 0) { return std::nullopt; }
  return at;
}

}  // namespace ardenix::survey
