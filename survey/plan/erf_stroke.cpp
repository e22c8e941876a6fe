#include "survey/plan/erf_stroke.h"

#include <algorithm>
#include <cmath>

#include "frame/host/core_services.h"

namespace ardenix::survey {

namespace {

struct Stroke {
  Point from;
  Point to;
};

// Places along the stroke are 0 at its start and 1 at its end.
void addCrossingOfLine(const Stroke& stroke, CCadWindow& view, std::vector<double>& places) {
  Point a;
  Point b;
  Point at;
  view.gsGetLine(a.x, a.y, b.x, b.y);
  const auto& [from, to] = stroke;
  if (coreIntOnLines(from.x, from.y, to.x, to.y, a.x, a.y, b.x, b.y, at.x, at.y) != 0) {
    places.push_back(distance(from, at) / distance(from, to));
  }
}

// Whether an arc passes through a point of its circle.
bool holds(Point start, Point centre, Point end, bool clockwise, Point at) {
  constexpr double kTurn = 2.0 * std::numbers::pi;
  const auto along = [&](Point p) {
    const double turned = angleOf(p - centre) - angleOf(start - centre);
    return std::fmod((clockwise ? -turned : turned) + 2.0 * kTurn, kTurn);
  };
  return nearlyEqual(start, end) || along(at) <= along(end);
}

void addCrossingsOfArc(const Stroke& stroke, CCadWindow& view, std::vector<double>& places) {
  Point start;
  Point centre;
  Point end;
  int direction = 0;
  view.gsGetArc(start.x, start.y, centre.x, centre.y, end.x, end.y, direction);
  const Point along = stroke.to - stroke.from;
  const double foot = dot(centre - stroke.from, along) / dot(along, along);
  const double radius = distance(centre, start);
  const double away = distance(centre, stroke.from + along * foot);
  if (away >= radius) { return; }
  const double half = std::sqrt(radius * radius - away * away) / length(along);
  for (const double place : {foot - half, foot + half}) {
    const bool onStroke = place > 0.0 && place < 1.0;
    if (onStroke && holds(start, centre, end, direction != 0, stroke.from + along * place)) { places.push_back(place); }
  }
}

std::vector<double> crossings(CCadWindow& view, const Stroke& stroke) {
  std::vector<double> places = {0.0, 1.0};
  const int scan =
      view.gsGetListHandle(kAnyPrimitive, -1, 0, stroke.from.x, stroke.from.y, stroke.to.x, stroke.to.y, 0, 0);
  for (int type = view.gsGetNextPrim(scan); type > 0; type = view.gsGetNextPrim(scan)) {
    if (type == kLinePrimitive) { addCrossingOfLine(stroke, view, places); }
    if (type == kArcPrimitive) { addCrossingsOfArc(stroke, view, places); }
  }
  view.gsFreeListHandle(scan);
  std::ranges::sort(places);
  return places;
}

}  // namespace

std::vector<Point> pointsAlongStroke(CCadWindow& view, Point from, Point to) {
  constexpr double kNarrow = 0.001;  // drawing units between two lines that are one
  std::vector<Point> points;
  const std::vector<double> places = crossings(view, {from, to});
  for (size_t n = 1; n < places.size(); ++n) {
    if ((places[n] - places[n - 1]) * distance(from, to) <= kNarrow) { continue; }
    points.push_back(from + (to - from) * ((places[n - 1] + places[n]) / 2.0));
  }
  return points;
}

}  // namespace ardenix::survey
