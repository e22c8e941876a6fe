#include <cmath>
#include <numbers>
#include <random>
#include <stdexcept>

#include "arch/roof_skeleton.h"
#include "bench/peers/roof_peers.h"
#include "bench/report.h"

// Ridges, hips and valleys of an outline with many corners, half of them pointing inwards.
namespace {

using namespace ardenix::arch;

RoofOutline ragged(int corners) {
  std::mt19937 random(21);
  std::uniform_real_distribution<double> away(8000, 10000);
  RoofOutline outline;
  for (int corner = 0; corner < corners; ++corner) {
    outline.corners.push_back(ardenix::polar(away(random), 2.0 * std::numbers::pi * corner / corners));
  }
  outline.sides.assign(outline.count(), RoofSide::kEaves);
  return outline;
}

void seamsOfRoof(benchmark::State& state) {
  const RoofOutline outline = ragged(static_cast<int>(state.range(0)));
  bench::BestTime ours;
  [[maybe_unused]] bench::BestTime cgal;
  size_t seams = 0;
  for (auto _ : state) {
    ours.measure([&] { return seams = roofSeams(outline).value().size(); });
#ifdef BENCH_CGAL
    cgal.measure([&] {
      const size_t theirs = bench::roofSeamsByCgal(outline);
      if (theirs != seams) { throw std::runtime_error("the roofs differ"); }
      return theirs;
    });
#endif
  }
  bench::report(state, static_cast<double>(outline.count()), ours.seconds(),
                {
#ifdef BENCH_CGAL
                    {"CGAL", cgal.seconds()},
#endif
                });
}
BENCHMARK(seamsOfRoof)->Arg(10)->Arg(100)->Arg(1000);

}  // namespace
