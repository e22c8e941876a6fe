#include "host/drawing/wall_run.h"

#include <algorithm>
#include <map>

#include "host/drawing/line_types.h"

namespace brevan {

namespace {

constexpr double kThickestMillimetres = 600.0;
constexpr double kWidestMillimetres = 3000.0;  // of openings before which a symbol may stand
constexpr double kParallel = 1e-6;             // radians

Box around(Point p, double reach) {
  Box box;
  box.add(p);
  return box.grownBy(reach);
}

// Offsets of the faces to the left of a line, the line's own being 0.
struct Faces {
  double low = 0.0;
  double high = 0.0;
};

const Line& lineOf(const Drawing& drawing, PrimitiveId id) { return std::get<Line>(drawing.find(id)->geometry); }

// The lines beside one of a wall that pass by the foot of a point on it.
Faces facesBeside(const Drawing& drawing, const WallRun& run, double reach, const std::vector<PrimitiveId>& near) {
  Faces faces;
  for (const PrimitiveId id : near) {
    const Line& line = lineOf(drawing, id);
    if (drawing.find(id)->group != run.group || !isParallel(line, run.along)) { continue; }
    const Point a = run.own(line.a);
    const Point b = run.own(line.b);
    if (std::max(a.x, b.x) < -reach || std::min(a.x, b.x) > reach) { continue; }
    faces.low = std::min(faces.low, a.y);
    faces.high = std::max(faces.high, a.y);
  }
  return faces;
}

// By a line of it; nothing where the line has no other beside it.
std::optional<WallRun> runOf(const Drawing& drawing, PrimitiveId id, Point p, double reach, const WallLayers& layers) {
  const Line& line = lineOf(drawing, id);
  WallRun run{.group = drawing.find(id)->group, .origin = line.a};
  run.along = (line.b - line.a) * (1.0 / distance(line.a, line.b));
  run.origin = run.at(run.own(p).x, 0.0);
  const double thickest = thickestWall(drawing);
  const Faces faces =
      facesBeside(drawing, run, reach, wallLines(drawing, around(run.origin, thickest + reach), layers));
  run.thickness = faces.high - faces.low;
  if (run.thickness <= kWallRounding || run.thickness > thickest) { return std::nullopt; }
  const double offset = run.own(p).y;
  const bool isLowNearer = offset - faces.low <= faces.high - offset;
  run.origin = run.at(0.0, isLowNearer ? faces.low : faces.high);
  if (!isLowNearer) { run.along = run.along * -1.0; }
  return run;
}

// The face of a wall goes on between the jambs of an opening in it: the foot of a point there, on the nearer face.
std::optional<WallRun> runOfOpening(const Drawing& drawing, const std::vector<Line>& jambs, Point p, double reach) {
  WallRun run{.origin = jambs[0].a, .thickness = distance(jambs[0].a, jambs[0].b)};
  const double width = distance(jambs[0].a, jambs[1].a);
  if (width == 0.0 || run.thickness > thickestWall(drawing)) { return std::nullopt; }
  run.along = (jambs[1].a - jambs[0].a) * (1.0 / width);
  if (run.own(jambs[0].b).y < 0.0) {
    run.origin = jambs[1].a;
    run.along = run.along * -1.0;
  }
  const Point own = run.own(p);
  if (own.x < 0.0 || own.x > width || own.y < -reach || own.y > run.thickness + reach) { return std::nullopt; }
  const bool isFirstNearer = own.y <= run.thickness - own.y;
  run.origin = run.at(own.x, isFirstNearer ? 0.0 : run.thickness);
  if (!isFirstNearer) { run.along = run.along * -1.0; }
  return run;
}

std::optional<WallRun> openingAt(const Drawing& drawing, Point p, double reach, const WallLayers& layers) {
  std::map<GroupId, std::vector<Line>> jambs;
  for (const PrimitiveId id : drawing.inBox(around(p, reach + kWidestMillimetres / drawing.parameters().unit()))) {
    const Primitive& primitive = *drawing.find(id);
    const auto* line = std::get_if<Line>(&primitive.geometry);
    const Layer& layer = *drawing.layer(primitive.layer);
    const bool isJamb = line != nullptr && primitive.group != 0 && layer.visible && layers(layer);
    if (isJamb && isOpening(drawing, primitive.group)) { jambs[primitive.group].push_back(*line); }
  }
  for (const auto& [group, lines] : jambs) {
    constexpr size_t kBoth = 2;
    const auto run = lines.size() == kBoth ? runOfOpening(drawing, lines, p, reach) : std::nullopt;
    if (run) { return run; }
  }
  return std::nullopt;
}

}  // namespace

double thickestWall(const Drawing& drawing) { return kThickestMillimetres / drawing.parameters().unit(); }

bool isParallel(const Line& line, Point unit) {
  const Point along = line.b - line.a;
  return std::abs(cross(unit, along)) <= kParallel * length(along);
}

bool isOpening(const Drawing& drawing, GroupId group) {
  constexpr size_t kMembers = 3;
  const std::vector<PrimitiveId>& members = drawing.group(group).members;
  return members.size() == kMembers && std::ranges::any_of(members, [&](PrimitiveId member) {
           return std::holds_alternative<Symbol>(drawing.find(member)->geometry);
         });
}

std::vector<PrimitiveId> wallLines(const Drawing& drawing, const Box& box, const WallLayers& layers) {
  std::vector<PrimitiveId> ids = drawing.inBox(box);
  std::erase_if(ids, [&](PrimitiveId id) {
    const Primitive& primitive = *drawing.find(id);
    const auto* line = std::get_if<Line>(&primitive.geometry);
    const Layer& layer = *drawing.layer(primitive.layer);
    return line == nullptr || primitive.group == 0 || line->a == line->b || !layer.visible || !layers(layer) ||
           !lineType(primitive.linetype).pattern.empty() || isOpening(drawing, primitive.group);
  });
  return ids;
}

std::optional<WallRun> wallAt(const Drawing& drawing, Point p, double reach, const WallLayers& layers) {
  std::vector<std::pair<double, PrimitiveId>> near;
  for (const PrimitiveId id : wallLines(drawing, around(p, reach), layers)) {
    const double away = distance(p, nearestOnSegment(lineOf(drawing, id), p));
    if (away <= reach) { near.emplace_back(away, id); }
  }
  std::ranges::sort(near);
  for (const auto& [away, id] : near) {
    if (const auto run = runOf(drawing, id, p, reach, layers)) { return run; }
  }
  return openingAt(drawing, p, reach, layers);
}

}  // namespace brevan
