#include <random>

#include "bench/report.h"
#include "bench/silent_window.h"
#include "host/geometry/clip_region.h"

// Cutting a drawing along a window by the macro, against the cutting of its lines alone.
namespace {

using namespace brevan;

constexpr double kSide = 1000.0;

std::vector<Curve> lines(int64_t count) {
  std::mt19937_64 random(3);
  std::uniform_real_distribution<double> along(0.0, kSide);
  std::uniform_real_distribution<double> off(-0.02 * kSide, 0.02 * kSide);
  std::vector<Curve> all;
  for (int64_t n = 0; n < count; ++n) {
    const Point a = {along(random), along(random)};
    all.emplace_back(Segment{a, a + Point{off(random), off(random)}});
  }
  return all;
}

// The length of what is left outside the window.
double cutAlone(const std::vector<Curve>& curves) {
  const ClipRegion region = ClipRegion::window({0.25 * kSide, 0.25 * kSide}, {0.75 * kSide, 0.75 * kSide});
  double left = 0.0;
  for (const Curve& curve : curves) {
    const auto pieces = cutByRegion(curve, region, {false, false, true});
    if (!pieces) { left += lengthOf(curve); }
    if (!pieces) { continue; }
    for (const Curve& piece : *pieces) { left += lengthOf(piece); }
  }
  return left;
}

void snip(benchmark::State& state) {
  bench::keepBigBlocks();
  const std::vector<Curve> curves = lines(state.range(0));
  bench::SilentWindow session;
  Drawing& drawing = session.drawing();
  drawing.beginLoading();
  for (const Curve& curve : curves) { drawing.load(drawing.lastId() + 1, {.geometry = std::get<Segment>(curve)}); }
  drawing.endLoading();
  benchmark::DoNotOptimize(drawing.inBox(Box{}));  // what is drawn was looked at before it is cut
  bench::BestTime alone;
  bench::BestTime macro;
  for (auto _ : state) {
    alone.measure([&] { return cutAlone(curves); });
    macro.measure([&] {
      session.macro("#SNIP \"Y\" \"Y\" \"N\" [250,250] [750,750]");
      return drawing.count();
    });
    drawing.undo();
  }
  bench::report(state, static_cast<double>(state.range(0)), macro.seconds(), {{"cutting alone", alone.seconds()}});
}
BENCHMARK(snip)->Arg(62'500)->Arg(250'000)->Arg(1'000'000)->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
