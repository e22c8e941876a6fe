#include <cmath>
#include <stdexcept>

#include "bench/peers/township_peers.h"
#include "bench/report.h"
#include "bench/silent_window.h"
#include "frame/host/number_text.h"
#include "host/drawing/boundary_map.h"
#include "host/geometry/loop.h"

// Tracing every parcel of a township by the macro, which draws each boundary too, against what a program on GEOS or
// CGAL does to find the same parcels all at once.
namespace {

using namespace brevan;

void fill(Drawing& drawing, const bench::Township& town) {
  drawing.beginStep("fill");
  for (const Segment& side : town.sides) { drawing.add({.geometry = side}); }
  drawing.endStep();
}

double traceAll(bench::SilentWindow& session, const bench::Township& town) {
  double area = 0.0;
  for (const Point inside : town.insides) {
    session.macro("#AUTOPERIM 0 [" + numberText::shortest(inside.x) + "," + numberText::shortest(inside.y) + "]");
    area += std::abs(signedArea(session.window().macroState().boundary.loop));
  }
  return area;
}

void traceParcels(benchmark::State& state) {
  const bench::Township town = bench::township(static_cast<int>(state.range(0)));
  bench::BestTime ours;
  [[maybe_unused]] bench::BestTime geos;
  [[maybe_unused]] bench::BestTime cgal;
  double area = 0.0;
  [[maybe_unused]] const auto agree = [&area](double other) {
    if (std::abs(other - area) > 1e-6 * area) { throw std::runtime_error("the parcels' areas differ"); }
    return other;
  };
  for (auto _ : state) {
    bench::SilentWindow session;
    fill(session.drawing(), town);
    ours.measure([&] { return area = traceAll(session, town); });
#ifdef BENCH_GEOS
    geos.measure([&] { return agree(bench::parcelsByGeos(town)); });
#endif
#ifdef BENCH_CGAL
    cgal.measure([&] { return agree(bench::parcelsByCgal(town)); });
#endif
  }
  bench::report(state, static_cast<double>(town.insides.size()), ours.seconds(),
                {
#ifdef BENCH_GEOS
                    {"GEOS", geos.seconds()},
#endif
#ifdef BENCH_CGAL
                    {"CGAL", cgal.seconds()},
#endif
                });
}
BENCHMARK(traceParcels)->Arg(50)->Arg(100)->Arg(200)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
