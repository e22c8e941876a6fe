#include "arch/roof_gables.h"

#include <algorithm>

#include "arch/elevation_view.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

// How a band ends at a facing gable.
enum class BandEnd {
  kWhole,    // there is none
  kOnSlope,  // its ridge runs into the slope
  kPasses,   // its ridge misses the slope, and others have to end it
  kBehind,   // the same of a single band, which ends on the gable's far side
};

// Two ends by their distance from a point, the first where they are equal.
struct FarAndNear {
  Point far;
  Point near;
};

FarAndNear ordered(const PlanLine& line, Point from) {
  const bool firstIsFar =
      distance(line.a, from) >= distance(line.b, from) || nearlyEqual(distance(line.a, from), distance(line.b, from));
  return firstIsFar ? FarAndNear{line.a, line.b} : FarAndNear{line.b, line.a};
}

struct Band {
  FarAndNear top;
  FarAndNear base;
  FarAndNear gable{};  // the eaves of the facing gable
  BandEnd ends = BandEnd::kWhole;
  Point cut{};   // where its ridge ends
  Point foot{};  // and where it comes down from there
};

struct Crossing {
  Point at;
  bool onEither = false;
};

Crossing crossed(Point a, Point b, Point c, Point d) {
  int onFirst = 0;
  int onSecond = 0;
  const PNT_2D_record at = coreIntersectionLines(a.x, a.y, b.x, b.y, c.x, c.y, d.x, d.y, onFirst, onSecond);
  return {{at.x, at.y}, onFirst != 0 || onSecond != 0};
}

PlanLine ridgeOf(const SideGable& side) {
  return {moved(side.eaves.a, side.up, side.rise), moved(side.eaves.b, side.up, side.rise)};
}

Band against(const SideGable& side, const FacingGable& facing) {
  Band band{.top = ordered(ridgeOf(side), facing.apex), .base = ordered(side.eaves, facing.apex)};
  band.gable = ordered(facing.eaves, band.top.near);
  const Crossing slope = crossed(band.top.far, band.top.near, band.gable.near, facing.apex);
  band.ends = slope.onEither ? BandEnd::kOnSlope : BandEnd::kPasses;
  band.cut = slope.at;
  return band;
}

void endBehind(Band& band) {
  const Point edge = band.top.near - band.base.near;
  band.ends = BandEnd::kBehind;
  band.foot = band.gable.far;
  band.cut = crossed(band.top.far, band.top.near, band.gable.far, band.gable.far + edge).at;
}

void endAtLast(Band& band, const Band& last) {
  band.foot = last.base.far;
  band.cut = crossed(band.top.near, band.top.far, last.base.far, last.top.far).at;
}

std::vector<Band> resolved(std::span<const FacingGable> facing, std::span<const SideGable> sides) {
  std::vector<Band> bands;
  bands.reserve(sides.size());
  for (const SideGable& side : sides) { bands.push_back(against(side, facing.back())); }
  if (bands.size() == 1 && bands.front().ends == BandEnd::kPasses) {
    endBehind(bands.front());
    return bands;
  }
  const Band last = bands.back();
  for (Band& band : bands) {
    if (band.ends == BandEnd::kPasses) { endAtLast(band, last); }
  }
  return bands;
}

class Strokes {
 public:
  void path(std::initializer_list<Point> points) {
    for (const Point* to = points.begin() + 1; to != points.end(); ++to) { add({*(to - 1), *to}); }
  }
  [[nodiscard]] std::vector<PlanLine> take() { return std::move(strokes_); }

 private:
  static bool same(Point a, Point b) { return distance(a, b) <= kSame; }
  void add(const PlanLine& stroke) {
    const auto isThis = [&stroke](const PlanLine& other) {
      return (same(stroke.a, other.a) && same(stroke.b, other.b)) ||
             (same(stroke.a, other.b) && same(stroke.b, other.a));
    };
    if (!same(stroke.a, stroke.b) && std::ranges::none_of(strokes_, isThis)) { strokes_.push_back(stroke); }
  }

  static constexpr double kSame = 1e-6;
  std::vector<PlanLine> strokes_;
};

}  // namespace

std::vector<PlanLine> roofStrokes(std::span<const FacingGable> facing, std::span<const SideGable> sides) {
  Strokes strokes;
  for (const FacingGable& gable : facing) {
    strokes.path({gable.eaves.a, gable.apex});
    strokes.path({gable.eaves.b, gable.apex});
  }
  if (sides.empty()) { return strokes.take(); }
  if (facing.empty()) {
    for (const SideGable& side : sides) {
      const PlanLine ridge = ridgeOf(side);
      strokes.path({side.eaves.a, ridge.a, ridge.b, side.eaves.b});
    }
    return strokes.take();
  }
  for (const Band& band : resolved(facing, sides)) {
    strokes.path({band.base.far, band.top.far, band.cut});
    if (band.ends != BandEnd::kOnSlope) { strokes.path({band.cut, band.foot}); }
  }
  return strokes.take();
}

}  // namespace ardenix::arch
