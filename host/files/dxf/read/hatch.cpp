#include "host/files/dxf/read/hatch.h"

#include <algorithm>

#include "host/drawing/hatch_patterns.h"
#include "host/files/dxf/read/curves.h"

namespace brevan {

namespace {

// The groups in their order: what a code means depends on what came before.
class HatchGroups {
 public:
  explicit HatchGroups(const DxfRecord& record) : record_(record), tags_(record.tags()) {}

  // Moves on to the next group of this code; false where there is none.
  bool seek(int code) {
    while (at_ < tags_.size() && tags_[at_].code != code) { ++at_; }
    return at_ < tags_.size();
  }
  // The group's value where the next one has this code, and moves on.
  double real(int code, double otherwise = 0.0) { return isNext(code) ? record_.realOf(tags_[at_++]) : otherwise; }
  int integer(int code, int otherwise = 0) { return isNext(code) ? record_.integerOf(tags_[at_++]) : otherwise; }
  Point point(int code) {
    const double x = real(code);
    return {x, real(code + 10)};
  }
  [[nodiscard]] bool isNext(int code) const { return at_ < tags_.size() && tags_[at_].code == code; }
  // How many rows the file says there are: never more than there are groups.
  int count(int code) { return std::clamp(integer(code), 0, static_cast<int>(tags_.size())); }

 private:
  const DxfRecord& record_;
  std::span<const DxfTag> tags_;
  size_t at_ = 0;
};

HatchLoop polylinePath(HatchGroups& groups) {
  HatchLoop loop;
  groups.integer(72);
  groups.integer(73);
  for (int corners = groups.count(93); corners > 0 && groups.isNext(10); --corners) {
    const Point at = groups.point(10);
    loop.push_back({at, groups.real(42)});
  }
  return loop;
}

void addChain(HatchLoop& loop, const std::vector<Point>& chain) {
  for (size_t at = 0; at + 1 < chain.size(); ++at) { loop.push_back({chain[at]}); }
}

// Angles of a clockwise arc are counted clockwise.
void addArc(HatchLoop& loop, HatchGroups& groups) {
  const Point centre = groups.point(10);
  const double radius = groups.real(40);
  double from = groups.real(50);
  double to = groups.real(51, 360.0);
  const bool clockwise = groups.integer(73, 1) == 0;
  if (clockwise) {
    from = -from;
    to = -to;
  }
  double sweep = std::fmod(to - from, 360.0);
  if (!clockwise && sweep <= 0.0) { sweep += 360.0; }
  if (clockwise && sweep >= 0.0) { sweep -= 360.0; }
  // In halves, since the bulge of a full circle is infinite.
  const double bulge = std::tan(sweep / 8.0 * kPi / 180.0);
  loop.push_back({centre + unitOfDegrees(from) * radius, bulge});
  loop.push_back({centre + unitOfDegrees(from + sweep / 2.0) * radius, bulge});
}

void addEllipse(HatchLoop& loop, HatchGroups& groups) {
  EllipseShape shape;
  shape.centre = groups.point(10);
  shape.major = groups.point(11);
  const double ratio = groups.real(40, 1.0);
  const double from = groups.real(50);
  const double to = groups.real(51, 360.0);
  const double side = groups.integer(73, 1) == 0 ? -1.0 : 1.0;
  shape.minor = Point{-shape.major.y, shape.major.x} * (ratio * side);
  shape.from = from * kPi / 180.0;
  shape.to = to * kPi / 180.0;
  addChain(loop, ellipseChain(shape));
}

void addSpline(HatchLoop& loop, HatchGroups& groups) {
  SplineShape shape;
  shape.degree = groups.integer(94, 3);
  groups.integer(73);
  groups.integer(74);
  const int knots = groups.count(95);
  const int controls = groups.count(96);
  for (int at = 0; at < knots && groups.isNext(40); ++at) { shape.knots.push_back(groups.real(40)); }
  for (int at = 0; at < controls && groups.isNext(10); ++at) {
    shape.controls.push_back(groups.point(10));
    if (groups.isNext(42)) { shape.weights.push_back(groups.real(42)); }
  }
  addChain(loop, splineChain(shape));
}

HatchLoop edgePath(HatchGroups& groups) {
  enum Edge { kLine = 1, kArc = 2, kEllipse = 3, kSpline = 4 };
  HatchLoop loop;
  for (int edges = groups.count(93); edges > 0 && groups.seek(72); --edges) {
    switch (groups.integer(72)) {
      case kLine:
        loop.push_back({groups.point(10)});
        groups.point(11);
        break;
      case kArc: addArc(loop, groups); break;
      case kEllipse: addEllipse(loop, groups); break;
      case kSpline: addSpline(loop, groups); break;
      default: break;
    }
  }
  return loop;
}

std::vector<HatchLoop> pathsOf(HatchGroups& groups) {
  constexpr int kPolyline = 2;
  std::vector<HatchLoop> loops;
  for (int paths = groups.seek(91) ? groups.count(91) : 0; paths > 0 && groups.seek(92); --paths) {
    const bool polyline = (groups.integer(92) & kPolyline) != 0;
    HatchLoop loop = polyline ? polylinePath(groups) : edgePath(groups);
    const bool bent = std::any_of(loop.begin(), loop.end(), [](const HatchCorner& c) { return c.bulge != 0.0; });
    if (loop.size() > 2 || (loop.size() == 2 && bent)) { loops.push_back(std::move(loop)); }
  }
  return loops;
}

std::vector<HatchLines> linesOf(HatchGroups& groups) {
  std::vector<HatchLines> families;
  for (int count = groups.seek(78) ? groups.count(78) : 0; count > 0 && groups.isNext(53); --count) {
    HatchLines lines;
    lines.angle = groups.real(53);
    lines.start.x = groups.real(43);
    lines.start.y = groups.real(44);
    const double acrossX = groups.real(45);
    const Point step = {acrossX, groups.real(46)};
    const Point along = unitOfDegrees(lines.angle);
    lines.step = {dot(step, along), cross(along, step)};
    for (int dashes = groups.count(79); dashes > 0 && groups.isNext(49); --dashes) {
      lines.dashes.push_back(groups.real(49));
    }
    families.push_back(std::move(lines));
  }
  return families;
}

// Our own pattern's first line tells where its origin fell.
void recogniseOwn(Hatch& hatch, const DxfRecord& record) {
  const HatchPattern* pattern = hatchPattern(hatch.pattern);
  if (pattern == nullptr || hatch.lines.empty()) { return; }
  hatch.scale = record.real(41, 1.0);
  hatch.angle = record.real(52);
  const Point turned = unitOfDegrees(hatch.angle);
  const Point start = pattern->lines.front().start * hatch.scale;
  hatch.origin = hatch.lines.front().start - Transform::rotation({}, turned.x, turned.y)(start);
  hatch.lines.clear();
}

}  // namespace

Hatch dxfHatchRead(const DxfRecord& record, bool own) {
  Hatch hatch;
  HatchGroups groups(record);
  hatch.loops = pathsOf(groups);
  const bool solid = record.integer(70) == 1;
  hatch.pattern = solid ? std::string(kSolidPattern) : std::string(record.name(2));
  if (!hatch.loops.empty() && solid) { hatch.origin = hatch.loops.front().front().at; }
  if (solid) { return hatch; }
  hatch.lines = linesOf(groups);
  if (own) { recogniseOwn(hatch, record); }
  return hatch;
}

}  // namespace brevan
