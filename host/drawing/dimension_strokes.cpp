#include "host/drawing/dimension_strokes.h"

namespace brevan {

namespace {

// The direction on paper in drawing coordinates: +1, or -1 on a sheet turned by half a turn.
double paperSense(const Parameters& parameters) { return parameters.turnedOnPaper() ? -1.0 : 1.0; }

// From beside the measured point to just past the dimension line; nothing for a point that lies on it.
void addExtensionLine(std::vector<Geometry>& strokes, Point measured, Point end, double paperMillimetre) {
  const double reach = distance(measured, end);
  const double gap = kExtensionGap * paperMillimetre;
  if (reach <= gap) { return; }
  const Point along = (end - measured) * (1.0 / reach);
  strokes.emplace_back(Line{measured + along * gap, end + along * (kExtensionOvershoot * paperMillimetre)});
}

void addDimensionLine(std::vector<Geometry>& strokes, const DimensionLine& line, double paperMillimetre) {
  const double span = distance(line.first, line.second);
  if (span == 0.0) { return; }
  const double head = kDimensionArrowLength / 10.0 * paperMillimetre;
  const auto arrow = [](Point tail, Point tip) {
    return Arrow{tail, tip, kDimensionArrowLength, kDimensionArrowWidth};
  };
  if (span >= 3.0 * head) {
    const Point centre = middle(line.first, line.second);
    strokes.emplace_back(arrow(centre, line.first));
    strokes.emplace_back(arrow(centre, line.second));
    return;
  }
  const Point outwards = (line.second - line.first) * (2.0 * head / span);
  strokes.emplace_back(Line{line.first, line.second});
  strokes.emplace_back(arrow(line.first - outwards, line.first));
  strokes.emplace_back(arrow(line.second + outwards, line.second));
}

}  // namespace

DimensionLine dimensionLine(const Dimension& dimension) {
  if (dimension.kind == DimensionKind::kHorizontal) {
    return {{dimension.p1.x, dimension.at.y}, {dimension.p2.x, dimension.at.y}};
  }
  return {{dimension.at.x, dimension.p1.y}, {dimension.at.x, dimension.p2.y}};
}

Point dimensionTextPoint(const Dimension& dimension, const Parameters& parameters) {
  const DimensionLine line = dimensionLine(dimension);
  const double away = kDimensionTextGap * parameters.paperMillimetre() * paperSense(parameters);
  const Point offset = dimension.kind == DimensionKind::kHorizontal ? Point{0.0, away} : Point{-away, 0.0};
  return middle(line.first, line.second) + offset;
}

std::vector<Geometry> dimensionStrokes(const Dimension& dimension, const Parameters& parameters) {
  std::vector<Geometry> strokes;
  const DimensionLine line = dimensionLine(dimension);
  const double paperMillimetre = parameters.paperMillimetre();
  addExtensionLine(strokes, dimension.p1, line.first, paperMillimetre);
  addExtensionLine(strokes, dimension.p2, line.second, paperMillimetre);
  addDimensionLine(strokes, line, paperMillimetre);
  if (dimension.text.empty()) { return strokes; }
  Text text;
  text.at = dimensionTextPoint(dimension, parameters);
  text.text = dimension.text;
  text.height = kDimensionTextHeight;
  text.angle = dimension.kind == DimensionKind::kHorizontal ? 0.0 : 900.0;
  text.justification = 4;
  text.pen = kPenByLayer;
  strokes.emplace_back(std::move(text));
  return strokes;
}

}  // namespace brevan
