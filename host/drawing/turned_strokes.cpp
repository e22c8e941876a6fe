#include "host/drawing/turned_strokes.h"

#include <algorithm>
#include <vector>

namespace brevan {

namespace {

Transform turn(double degrees, Point about) {
  const Point unit = unitOfDegrees(degrees);
  return Transform::rotation(about, unit.x, unit.y);
}

}  // namespace

TurnedStrokes::TurnedStrokes(StrokeSink& sink, double degrees, Point about)
    : sink_(sink), degrees_(degrees), turn_(turn(degrees, about)) {}

void TurnedStrokes::line(const StrokeStyle& style, Point a, Point b) { sink_.line(style, turn_(a), turn_(b)); }

void TurnedStrokes::arc(const StrokeStyle& style, const ArcShape& arc) {
  ArcShape turned = arc;
  turned.start = turn_(arc.start);
  turned.centre = turn_(arc.centre);
  turned.end = turn_(arc.end);
  sink_.arc(style, turned);
}

void TurnedStrokes::text(const StrokeStyle& style, const TextStroke& text) {
  TextStroke turned = text;
  turned.baseline = turn_(text.baseline);
  turned.angle = text.angle + degrees_;
  sink_.text(style, turned);
}

void TurnedStrokes::polygon(const StrokeStyle& style, std::span<const Point> corners) {
  std::vector<Point> turned(corners.size());
  std::ranges::transform(corners, turned.begin(), turn_);
  sink_.polygon(style, turned);
}

}  // namespace brevan
