#include "survey/surroundings.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <numbers>
#include <string>
#include <vector>

#include "frame/drafting/macro_texts.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix::survey {

namespace {

constexpr double kAround = 10.0;  // drawing units

bool apart(double a1, double a2, double b1, double b2, double margin) {
  return std::min(a1, a2) > std::max(b1, b2) + margin || std::max(a1, a2) < std::min(b1, b2) - margin;
}

// Crosses a straight piece of the boundary, ends on it or lies along it; drawn ends meet within 0.001 unit.
bool touches(Point from, Point to, Point a, Point b) {
  constexpr double kMeeting = 0.001;
  if (apart(a.x, b.x, from.x, to.x, kMeeting) || apart(a.y, b.y, from.y, to.y, kMeeting)) { return false; }
  Point crossing;
  return coreIntOnLines(from.x, from.y, to.x, to.y, a.x, a.y, b.x, b.y, crossing.x, crossing.y) != 0 ||
         distanceToSegment(a, from, to) <= kMeeting || distanceToSegment(b, from, to) <= kMeeting ||
         distanceToSegment(from, a, b) <= kMeeting || distanceToSegment(to, a, b) <= kMeeting;
}

// Arcs are followed by their chords of this many radians.
constexpr double kArcStep = std::numbers::pi / 12.0;

bool touchesSide(const Side& side, Point a, Point b) {
  std::vector<Point> points = side.points(kArcStep);
  points.push_back(side.to);
  for (size_t n = 1; n < points.size(); ++n) {
    if (touches(points[n - 1], points[n], a, b)) { return true; }
  }
  return false;
}

bool isIsolated(CCadWindow& view, const Figure& figure) {
  Point a;
  Point b;
  view.gsGetLine(a.x, a.y, b.x, b.y);
  return std::none_of(figure.begin(), figure.end(), [&](const Side& side) { return touchesSide(side, a, b); });
}

void clipToRectangle(const JobSettings& job, CCadWindow& view, const Extents& extents) {
  const auto [low, high] = extents.grownBy(job.options().offset * job.paperFactor());
  view.gsExecuteMacro(macroText::cutAround({high.x, low.y}, {low.x, high.y}));
}

// Corners of a polygon that holds the side's arc: where its tangents meet if it bulges outwards, its chord if not.
std::vector<Point> cornersOf(const Side& side, bool counterClockwise) {
  if (!side.arc || (side.arc->sweep > 0.0) != counterClockwise) { return {side.from}; }
  std::vector<Point> corners = side.points(kArcStep);
  const double half = side.arc->sweep / static_cast<double>(corners.size()) / 2.0;
  for (Point& corner : corners) {
    corner = side.arc->centre + turned(corner - side.arc->centre, half) / std::cos(half);
  }
  corners.insert(corners.begin(), side.from);
  return corners;
}

std::string polygonClip(const Figure& figure, double factor) {
  const Point centre = extentsOf(figure).centre();
  const bool counterClockwise = runsCounterClockwise(figure);
  std::vector<Point> corners;
  for (const Side& side : figure) {
    for (const Point corner : cornersOf(side, counterClockwise)) {
      corners.push_back(centre + (corner - centre) * factor);
    }
  }
  return macroText::cutAroundPolygon(corners);
}

}  // namespace

OpenedLayers::OpenedLayers(CCadWindow& from, CCadWindow& onto) : onto_(onto) {
  const int count = from.gsGetLayerCount();
  for (int index = 0; index < count; ++index) {
    LayerDef definition;
    if (from.gsGetLayerDefIndex(index, definition) == 0) { continue; }
    if (!definition.visible || definition.locked) { kept_.push_back({index, definition}); }
    definition.visible = true;
    definition.locked = false;
    onto.gsSetLayerDefIndex(index, definition);
  }
}

void OpenedLayers::close(int drawnOn) {
  for (const auto& [index, definition] : kept_) {
    const int layer = onto_.gsGetLayerIndexFromName(definition.name);
    if (layer > 0 && layer != drawnOn) { onto_.gsSetLayerDefIndex(layer, definition); }
  }
}

void copySurroundings(const JobSettings& job, CCadWindow& from, CCadWindow& onto, const Figure& figure) {
  const auto [low, high] = extentsOf(figure).grownBy(kAround);
  from.gsSetDisplayToCopy();
  const bool onlyTouching = job.mode() == SurveyMode::kDiagram && job.options().delLines;
  const int scan = from.gsGetListHandle(kAnyPrimitive, -1, 0, low.x, low.y, high.x, high.y, 0, 0);
  int copied = 0;
  for (int type = from.gsGetNextPrim(scan); type != 0; type = from.gsGetNextPrim(scan)) {
    if (type < 0) {
      std::clog << numberText::format("Error %d on cadGetNextPrim\n", type);
      continue;
    }
    if (type == kLinePrimitive && onlyTouching && isIsolated(from, figure)) { continue; }
    from.gsCopyPrimHeader(onto);
    from.gsCopyPrim(onto);
    onto.gsAddPrim();
    onto.gsSetStatus(numberText::format("Copying CAD Entities %d", ++copied));
  }
  from.gsFreeListHandle(scan);
}

void copyLinesInPen(CCadWindow& from, CCadWindow& onto, const Extents& extents, int pen) {
  const auto [low, high] = extents;
  const int layer = onto.gsGetCurrentLayer();
  from.gsSetDisplayToCopy();
  const int scan = from.gsGetListHandle(kAnyPrimitive, -1, 0, low.x, low.y, high.x, high.y, 0, 0);
  for (int type = from.gsGetNextPrim(scan); type != 0; type = from.gsGetNextPrim(scan)) {
    if (type != kLinePrimitive && type != kArcPrimitive) { continue; }
    PrimHeader header;
    from.gsGetPrimHeader(header);
    onto.gsSetPrimHeader(type, 0, 0, layer, pen, header.linetype, 0.0, 0, 0);
    from.gsCopyPrim(onto);
    onto.gsAddPrim();
  }
  from.gsFreeListHandle(scan);
}

void clipSurroundings(const JobSettings& job, CCadWindow& view, const Figure& figure) {
  constexpr size_t kCommandLimit = 1024;
  view.gsExecuteMacro(macroText::kAllLayersOff);
  const Extents extents = extentsOf(figure);
  if (job.options().useOffset || figure.size() < kFewestCorners) { return clipToRectangle(job, view, extents); }
  const std::string command = polygonClip(figure, job.options().polySnipFactor);
  if (command.size() >= kCommandLimit) { return clipToRectangle(job, view, extents); }
  view.gsExecuteMacro(command);
}

}  // namespace ardenix::survey
