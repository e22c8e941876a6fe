#include "host/drawing/wall_joins.h"

#include <algorithm>
#include <set>

#include "host/drawing/part_selection.h"

namespace brevan {

namespace {

struct Interval {
  double from = 0.0;
  double to = 0.0;
  [[nodiscard]] bool hasLength() const { return to - from > kWallRounding; }
};

Interval overlap(const Interval& one, const Interval& other) {
  return {std::max(one.from, other.from), std::min(one.to, other.to)};
}

// What is solid between two faces: along runs from 0 to the length, across from 0 to the thickness.
struct Band {
  WallRun run;
  double length = 0.0;
};

struct JoinedLine {
  PrimitiveId id = 0;
  Line line;
  std::vector<Interval> gone{};  // along the line, from its start

  [[nodiscard]] double length() const { return distance(line.a, line.b); }
  [[nodiscard]] Point unit() const { return (line.b - line.a) * (1.0 / length()); }
};

struct JoinedWall {
  std::vector<JoinedLine> lines;
  std::vector<Band> bands;
};

// ---- What is solid ------------------------------------------------------------------------------------------

// How far a line beside another lies from it, and where both run.
struct Beside {
  double offset = 0.0;
  Interval shared;
};

std::optional<Beside> beside(const JoinedLine& line, const JoinedLine& other, double thickest) {
  const Point unit = line.unit();
  if (!isParallel(other.line, unit)) { return std::nullopt; }
  const Point a = other.line.a - line.line.a;
  const Point b = other.line.b - line.line.a;
  const auto [from, to] = std::minmax({dot(a, unit), dot(b, unit)});
  Beside found{cross(unit, a), overlap({0.0, line.length()}, {from, to})};
  const double size = std::abs(found.offset);
  if (!found.shared.hasLength() || size <= kWallRounding || size > thickest) { return std::nullopt; }
  return found;
}

// Faces are each the furthest that the other has beside it.
std::vector<Band> bandsOf(const std::vector<JoinedLine>& lines, double thickest) {
  std::vector<double> furthest(lines.size(), 0.0);
  for (size_t at = 0; at < lines.size(); ++at) {
    for (const JoinedLine& other : lines) {
      if (const auto found = beside(lines[at], other, thickest)) {
        furthest[at] = std::max(furthest[at], std::abs(found->offset));
      }
    }
  }
  std::vector<Band> bands;
  for (size_t at = 0; at < lines.size(); ++at) {
    for (size_t with = at + 1; with < lines.size(); ++with) {
      const auto found = beside(lines[at], lines[with], thickest);
      const auto reaches = [&](size_t line) {
        return std::abs(furthest[line] - std::abs(found->offset)) <= kWallRounding;
      };
      if (!found || !reaches(at) || !reaches(with)) { continue; }
      const bool isLeft = found->offset > 0.0;
      WallRun run{.origin = lines[at].line.a, .along = lines[at].unit(), .thickness = std::abs(found->offset)};
      run.origin = run.at(isLeft ? found->shared.from : found->shared.to, 0.0);
      if (!isLeft) { run.along = run.along * -1.0; }
      bands.push_back({run, found->shared.to - found->shared.from});
    }
  }
  return bands;
}

// Only what lies near the other wall matters.
JoinedWall wallNear(const Drawing& drawing, GroupId group, const Box& box) {
  JoinedWall wall;
  for (const PrimitiveId id : wallLines(drawing, box, [](const Layer&) { return true; })) {
    if (drawing.find(id)->group == group) { wall.lines.push_back({id, std::get<Line>(drawing.find(id)->geometry)}); }
  }
  wall.bands = bandsOf(wall.lines, thickestWall(drawing));
  return wall;
}

// ---- What goes ----------------------------------------------------------------------------------------------

// What of a line lies between two values of a coordinate that runs evenly along it.
Interval within(const JoinedLine& line, const Interval& values, double atStart, double atEnd) {
  const double rise = (atEnd - atStart) / line.length();
  const Interval all{0.0, line.length()};
  if (std::abs(atEnd - atStart) <= kWallRounding) {
    const double value = (atStart + atEnd) / 2.0;
    return values.from < value && value < values.to ? all : Interval{};
  }
  const auto [from, to] = std::minmax({(values.from - atStart) / rise, (values.to - atStart) / rise});
  return overlap(all, {from, to});
}

// By how much a line may lie outside and still count as inside; below 0, how deep inside it has to lie.
struct Margins {
  double along = 0.0;
  double across = 0.0;
};

Interval insideBand(const JoinedLine& line, const Band& band, const Margins& margins) {
  const Point a = band.run.own(line.line.a);
  const Point b = band.run.own(line.line.b);
  const bool runsAlong = std::abs(b.y - a.y) <= kWallRounding;
  const bool runsAcross = std::abs(b.x - a.x) <= kWallRounding;
  const double along = runsAcross ? margins.along : 0.0;
  const double across = runsAlong ? margins.across : 0.0;
  return overlap(within(line, {-along, band.length + along}, a.x, b.x),
                 within(line, {-across, band.run.thickness + across}, a.y, b.y));
}

constexpr Margins kOpen{-kWallRounding, -kWallRounding};
constexpr Margins kClosed{kWallRounding, kWallRounding};

bool isInside(const std::vector<Band>& bands, Point p) {
  return std::ranges::any_of(bands, [p](const Band& band) {
    const Point own = band.run.own(p);
    return own.x > kWallRounding && own.x < band.length - kWallRounding && own.y > kWallRounding &&
           own.y < band.run.thickness - kWallRounding;
  });
}

// Where a wall ends: the middle of the end, and a point beyond it.
struct Mouth {
  double at = 0.0;  // along the band
  Point beyond;
};

std::vector<Mouth> mouthsOf(const Band& band) {
  constexpr double kShare = 0.05;
  const double beyond = kShare * band.run.thickness;
  const double half = band.run.thickness / 2.0;
  return {{0.0, band.run.at(-beyond, half)}, {band.length, band.run.at(band.length + beyond, half)}};
}

bool liesAcross(const JoinedLine& line, const Band& band, double at) {
  const Point a = band.run.own(line.line.a);
  const Point b = band.run.own(line.line.b);
  return std::abs(a.x - at) <= kWallRounding && std::abs(b.x - at) <= kWallRounding;
}

void take(JoinedLine& line, const Interval& gone) {
  if (gone.hasLength()) { line.gone.push_back(gone); }
}

// What lies in the other wall, and at an open mouth of it.
void openTo(JoinedWall& wall, const JoinedWall& other) {
  for (JoinedLine& line : wall.lines) {
    for (const Band& band : other.bands) {
      take(line, insideBand(line, band, kOpen));
      for (const Mouth& mouth : mouthsOf(band)) {
        if (liesAcross(line, band, mouth.at) && isInside(wall.bands, mouth.beyond)) {
          take(line, insideBand(line, band, kClosed));
        }
      }
    }
  }
}

// The ends of a wall that lie on the other.
void dropEnds(JoinedWall& wall, const JoinedWall& other) {
  for (JoinedLine& line : wall.lines) {
    const bool closes = std::ranges::any_of(wall.bands, [&](const Band& band) {
      return liesAcross(line, band, 0.0) || liesAcross(line, band, band.length);
    });
    if (!closes) { continue; }
    for (const Band& band : other.bands) { take(line, insideBand(line, band, kClosed)); }
  }
}

std::vector<Interval> remains(const JoinedLine& line) {
  std::vector<Interval> gone = line.gone;
  std::ranges::sort(gone, {}, &Interval::from);
  std::vector<Interval> kept;
  double from = 0.0;
  for (const Interval& each : gone) {
    if (each.from - from > kWallRounding) { kept.push_back({from, each.from}); }
    from = std::max(from, each.to);
  }
  if (line.length() - from > kWallRounding) { kept.push_back({from, line.length()}); }
  return kept;
}

void apply(Drawing& drawing, const JoinedWall& wall) {
  for (const JoinedLine& line : wall.lines) {
    if (line.gone.empty() || !isChangeable(drawing, line.id)) { continue; }
    Primitive part = *drawing.find(line.id);
    bool isFirst = true;
    for (const Interval& kept : remains(line)) {
      part.geometry = Line{line.line.a + line.unit() * kept.from, line.line.a + line.unit() * kept.to};
      if (isFirst) {
        drawing.replace(line.id, part);
      } else {
        drawing.add(part);
      }
      isFirst = false;
    }
    if (isFirst) { drawing.remove(line.id); }
  }
}

Box extentOf(const Drawing& drawing, GroupId group) {
  Box box;
  for (const PrimitiveId id : drawing.group(group).members) { box.add(drawing.bounds(*drawing.find(id))); }
  return box.grownBy(thickestWall(drawing));
}

void joinTwo(Drawing& drawing, GroupId wall, GroupId other) {
  JoinedWall one = wallNear(drawing, wall, extentOf(drawing, other));
  JoinedWall two = wallNear(drawing, other, extentOf(drawing, wall));
  openTo(one, two);
  openTo(two, one);
  dropEnds(one, two);
  dropEnds(two, one);
  apply(drawing, one);
  apply(drawing, two);
}

}  // namespace

void joinWalls(Drawing& drawing, const std::vector<GroupId>& walls, const std::function<bool(GroupId)>& others) {
  std::set<GroupId> done;
  for (const GroupId wall : walls) {
    done.insert(wall);
    std::set<GroupId> met;
    for (const PrimitiveId id : wallLines(drawing, extentOf(drawing, wall), [](const Layer&) { return true; })) {
      const GroupId other = drawing.find(id)->group;
      if (!done.contains(other) && others(other)) { met.insert(other); }
    }
    for (const GroupId other : met) { joinTwo(drawing, wall, other); }
  }
}

}  // namespace brevan
