#include "survey/plan/sheet_tool.h"

#include <utility>

namespace ardenix::survey {

JobSettings* SheetTool::begin() {
  view().gsStartPat("");  // what is drawn here belongs to no part that an earlier command left open
  return beginJob(job_, SurveyMode::kGeneralPlan, view()) ? job_.get() : nullptr;
}

void SheetTool::setLastFigure(TracedArea figure) {
  moveHere();
  figure_ = std::move(figure);
}

void SheetTool::setLastErven(NumberedErven erven) {
  moveHere();
  erven_ = erven;
}

void SheetTool::moveHere() {
  if (isHere()) { return; }
  figure_.reset();
  erven_.reset();
  areasView_ = view().life();
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
