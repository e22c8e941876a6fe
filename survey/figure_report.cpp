#include "survey/figure_report.h"

#include <algorithm>
#include <cmath>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/diagram_table.h"

namespace ardenix::survey {

namespace {

using numberText::format;

// Misclosures are written with three decimals.
constexpr double kSmallestMisclosure = 0.0005;

void reportMisclosure(CCadWindow& view, const Figure& figure, Point misclosure) {
  const double missed = length(misclosure);
  if (missed < kSmallestMisclosure) { return; }
  InfoMessage(format("The figure does not close by %.3f: %.3f in Y, %.3f in X, 1 in %.0f of its perimeter.", missed,
                     misclosure.x, misclosure.y, perimeterOf(figure) / missed),
              &view);
}

void reportCrossing(CCadWindow& view, const Figure& figure) {
  const auto crossing = crossingSides(figure);
  if (!crossing) { return; }
  InfoMessage(
      format("The figure crosses itself: its sides %s and %s meet.", crossing->first->name(), crossing->second->name()),
      &view);
}

void reportFigureFit(const SheetWriter& sheet, const Extents& paper, const Figure& figure) {
  const Extents extents = extentsOf(figure);
  const double millimetre = sheet.job().paperFactor();
  const Point size = (extents.high - extents.low) / millimetre;
  const Point room = (paper.high - paper.low) / millimetre;
  const Point aside = (extents.centre() - paper.centre()) / millimetre;
  // What stands beside the middle has the smaller part of the sheet on either side.
  const Point free{room.x - 2.0 * std::fabs(aside.x), room.y - 2.0 * std::fabs(aside.y)};
  if (size.x <= free.x && size.y <= free.y) { return; }
  std::string text = format("The figure takes %.0f x %.0f mm at 1:%.0f and does not fit the sheet of %.0f x %.0f mm.",
                            size.x, size.y, sheet.job().scale(), room.x, room.y);
  if (free.x > 0.0 && free.y > 0.0) {
    const double needed = sheet.job().scale() * std::max(size.x / free.x, size.y / free.y);
    text +=
        format(" The largest standard scale at which it does is 1:%s.", numberText::shortest(standardScale(needed)));
  }
  InfoMessage(text, &sheet.view());
}

void reportTableFit(const SheetWriter& sheet, const Extents& paper, const Figure& figure) {
  const TextRow row = dataTableRow(sheet.job());
  if (row.vertical == kNextLine) { return; }
  const double millimetre = sheet.job().paperFactor();
  const double end = heightOfDataTable(sheet, row, figure) / millimetre - row.vertical;
  const double room = (paper.high.y - paper.low.y) / millimetre;
  if (end <= room) { return; }
  InfoMessage(
      format("The data table of %d sides ends %.0f mm below the sheet.", static_cast<int>(figure.size()), end - room),
      &sheet.view());
}

}  // namespace

bool reportFigure(CCadWindow& view, const Figure& figure, Point misclosure) {
  if (figure.size() < kFewestCorners) {
    ErrorMessage(format("A figure has three corners at least, this one has %d.", static_cast<int>(figure.size())),
                 &view);
    return false;
  }
  reportMisclosure(view, figure, misclosure);
  reportCrossing(view, figure);
  return true;
}

void reportFit(const SheetWriter& sheet, const Extents& paper, const Figure& figure) {
  reportFigureFit(sheet, paper, figure);
  reportTableFit(sheet, paper, figure);
}

double standardScale(double denominator) {
  constexpr double kSteps[] = {1, 1.25, 1.5, 2, 2.5, 3, 4, 5, 6, 7.5, 10};
  constexpr double kHair = 1e-9;
  const double ten = std::pow(10.0, std::floor(std::log10(denominator)));
  const double* const step =
      std::ranges::find_if(kSteps, [&](double each) { return each * ten >= denominator * (1.0 - kHair); });
  return *step * ten;
}

}  // namespace ardenix::survey
