#include "host/drawing/sheet.h"

#include <array>

namespace brevan {

namespace {

struct IsoSize {
  std::string_view name;
  double shortSide;
  double longSide;
};

constexpr std::array<IsoSize, 5> kSmallestFirst = {
    {{"A4", 210.0, 297.0}, {"A3", 297.0, 420.0}, {"A2", 420.0, 594.0}, {"A1", 594.0, 841.0}, {"A0", 841.0, 1189.0}}};

constexpr double kMargin = 10.0;

Sheet sheetOf(const IsoSize& size, bool portrait) {
  Sheet sheet;
  sheet.name = size.name;
  sheet.width = portrait ? size.shortSide : size.longSide;
  sheet.height = portrait ? size.longSide : size.shortSide;
  return sheet;
}

// From millimetres on paper to drawing units; negative where paper is turned by half a turn.
double paperToDrawing(const Parameters& parameters) {
  return parameters.turnedOnPaper() ? -parameters.paperMillimetre() : parameters.paperMillimetre();
}

Sheet smallestHolding(double width, double height) {
  for (const IsoSize& size : kSmallestFirst) {
    for (const bool portrait : {false, true}) {
      Sheet sheet = sheetOf(size, portrait);
      if (width <= sheet.width - 2.0 * kMargin && height <= sheet.height - 2.0 * kMargin) { return sheet; }
    }
  }
  return sheetOf(kSmallestFirst.back(), height > width);
}

}  // namespace

std::optional<Sheet> isoSheet(std::string_view name, bool portrait) {
  for (const IsoSize& size : kSmallestFirst) {
    if (size.name == name) { return sheetOf(size, portrait); }
  }
  return std::nullopt;
}

Sheet sheetFor(const Box& extents, const Parameters& parameters) {
  const double size = parameters.paperMillimetre();
  Sheet sheet = smallestHolding(extents.width() / size, extents.height() / size);
  const Point centre = extents.empty() ? Point{} : extents.centre();
  sheet.corner = centre - Point{sheet.width, sheet.height} * (0.5 * paperToDrawing(parameters));
  return sheet;
}

Transform toSheet(const Sheet& sheet, const Parameters& parameters) {
  const double factor = 1.0 / paperToDrawing(parameters);
  return {factor, 0.0, -sheet.corner.x * factor, 0.0, factor, -sheet.corner.y * factor};
}

namespace {

// From the corner to the middle, in drawing units.
Point toMiddle(const Sheet& sheet, const Parameters& parameters) {
  return Point{sheet.width, sheet.height} * (0.5 / toSheet(sheet, parameters).xx);
}

}  // namespace

void centreSheet(Sheet& sheet, const Parameters& parameters, Point centre) {
  sheet.corner = centre - toMiddle(sheet, parameters);
}

Point sheetCentre(const Sheet& sheet, const Parameters& parameters) {
  return sheet.corner + toMiddle(sheet, parameters);
}

}  // namespace brevan
