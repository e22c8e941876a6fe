#include "mech/nearest_line.h"

#include <numbers>

#include "frame/host/core_services.h"

namespace ardenix::mech {

std::optional<LineFoot> footOnNearestLine(CCadWindow& view, Point point) {
  if (view.gsNearestPrim(kLinePrimitive, point.x, point.y) != kLinePrimitive) { return std::nullopt; }
  LineFoot line;
  view.gsGetLine(line.a.x, line.a.y, line.b.x, line.b.y);
  double length = 0.0;
  double direction = 0.0;
  coreSurvJoin(line.a.y, line.a.x, line.b.y, line.b.x, length, direction);
  Point aside;
  coreSurvPolar(point.y, point.x, direction + std::numbers::pi / 2.0, 100.0, aside.y, aside.x);
  int onFirst = 0;
  int onSecond = 0;
  const PNT_2D_record foot = coreIntersectionLines(line.a.x, line.a.y, line.b.x, line.b.y, point.x, point.y, aside.x,
                                                   aside.y, onFirst, onSecond);
  line.foot = {foot.x, foot.y};
  return line;
}

}  // namespace ardenix::mech
