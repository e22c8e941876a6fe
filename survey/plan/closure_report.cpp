#include "survey/plan/closure_report.h"

#include <cmath>

#include "frame/host/number_text.h"
#include "survey/number_formats.h"

namespace ardenix::survey {

std::string closureReport(const SheetTool& tool, const JobSettings& job) {
  const auto erven = tool.lastErven();
  if (!erven) { return ""; }
  const auto written = [&](double area) { return formattedNumber(area, job.numbers()); };
  std::string text = numberText::format("%d erven: %s", erven->count, written(erven->area));
  if (const auto figure = tool.lastFigure()) {
    const double rest = figure->area - erven->area;
    text += numberText::format(". The figure%shas %s, %s %s.", std::string_view(figure->name), written(figure->area),
                               written(std::fabs(rest)), rest < 0.0 ? "less" : "more");
  }
  return text;
}

}  // namespace ardenix::survey
