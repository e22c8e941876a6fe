#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <random>
#include <stdexcept>

#include "bench/report.h"
#include "host/drawing/drawing.h"

// Finding the nearest of many lines, in a drawing loaded at once as in one that grew line by line with a pick in
// between, against a packed R-tree of the segments themselves and against measuring every line.
namespace {

using namespace brevan;

constexpr double kSide = 10'000.0;
constexpr int kPicks = 20'000;

namespace bg = boost::geometry;
using TreePoint = bg::model::point<double, 2, bg::cs::cartesian>;
using TreeSegment = bg::model::segment<TreePoint>;
using TreeEntry = std::pair<TreeSegment, PrimitiveId>;
using Tree = bg::index::rtree<TreeEntry, bg::index::quadratic<16>>;

class Places {
 public:
  Point next() { return {along_(random_), along_(random_)}; }
  // As long as lines lie apart, whatever their number.
  Line line(int count) {
    const Point a = next();
    const double reach = kSide / std::sqrt(static_cast<double>(count));
    return {a, a + Point{off_(random_), off_(random_)} * reach};
  }

 private:
  std::mt19937_64 random_{5};
  std::uniform_real_distribution<double> along_{0.0, kSide};
  std::uniform_real_distribution<double> off_{-1.0, 1.0};
};

bool any(PrimitiveId, const Primitive&) { return true; }

// A pick every so often while the drawing grows, so that its index grows with it.
void grow(Drawing& drawing, int count) {
  constexpr int kLinesAPick = 100;
  Places places;
  for (int n = 0; n < count; ++n) {
    drawing.add({.geometry = places.line(count)});
    if (n % kLinesAPick == 0) { benchmark::DoNotOptimize(drawing.nearest({0.0, 0.0}, kSide, any)); }
  }
}

void load(Drawing& drawing, int count) {
  Places places;
  drawing.beginLoading();
  for (int n = 1; n <= count; ++n) { drawing.load(n, {.geometry = places.line(count)}); }
  drawing.endLoading();
}

Tree treeOf(const Drawing& drawing) {
  std::vector<TreeEntry> entries;
  drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
    const Line& line = std::get<Line>(primitive.geometry);
    entries.emplace_back(TreeSegment{{line.a.x, line.a.y}, {line.b.x, line.b.y}}, id);
  });
  return Tree(entries.begin(), entries.end());
}

PrimitiveId nearestInTree(const Tree& tree, Point p) {
  TreeEntry found;
  tree.query(bg::index::nearest(TreePoint(p.x, p.y), 1), &found);
  return found.second;
}

PrimitiveId nearestByScan(const Drawing& drawing, Point p) {
  PrimitiveId nearest = 0;
  double least = std::numeric_limits<double>::infinity();
  drawing.forEach([&](PrimitiveId id, const Primitive& primitive) {
    const double away = drawing.distanceTo(primitive, p);
    if (away >= least) { return; }
    nearest = id;
    least = away;
  });
  return nearest;
}

template <class Pick>
double secondsAPick(int picks, const Pick& pick) {
  bench::BestTime time;
  for (int run = 0; run < 3; ++run) {
    Places places;
    time.measure([&] {
      PrimitiveId sum = 0;
      for (int n = 0; n < picks; ++n) { sum ^= pick(places.next()); }
      return sum;
    });
  }
  return time.seconds() / picks;
}

void nearest(benchmark::State& state, void (*make)(Drawing&, int)) {
  Drawing drawing;
  make(drawing, static_cast<int>(state.range(0)));
  const Tree tree = treeOf(drawing);
  const auto pick = [&](Point p) { return drawing.nearest(p, kSide, any); };
  Places places;
  for (int n = 0; n < 20; ++n) {
    const Point p = places.next();
    const PrimitiveId wanted = nearestByScan(drawing, p);
    if (pick(p) != wanted || nearestInTree(tree, p) != wanted) { throw std::runtime_error("not the nearest"); }
  }
  for (auto _ : state) {
    constexpr int kScans = 5;
    bench::report(state, static_cast<double>(state.range(0)), secondsAPick(kPicks, pick),
                  {{"Boost R-tree", secondsAPick(kPicks, [&](Point p) { return nearestInTree(tree, p); })},
                   {"scan of all", secondsAPick(kScans, [&](Point p) { return nearestByScan(drawing, p); })}});
  }
}
BENCHMARK_CAPTURE(nearest, loaded, load)->Arg(62'500)->Arg(250'000)->Arg(1'000'000)->Iterations(1);
BENCHMARK_CAPTURE(nearest, grown, grow)->Arg(62'500)->Arg(250'000)->Arg(1'000'000)->Iterations(1);

}  // namespace
