// The scan of groups that numbering a part prescribes, at three sizes of drawing, against a walk over the
// same names in a plain list.
#include <benchmark/benchmark.h>

#include "bench/silent_window.h"
#include "frame/group_numbering.h"

namespace {

std::string nameOf(int64_t number) { return "M10X60_S" + std::to_string(number); }

void numbering(benchmark::State& state) {
  bench::SilentWindow session;
  brevan::DrawingWindow& window = session.window();
  for (int64_t number = 1; number <= state.range(0); ++number) {
    const brevan::GroupId group = window.drawing().addGroup("BOLTS", nameOf(number));
    for (int stroke = 0; stroke < 24; ++stroke) {
      window.drawing().add({0, 1, 1, 5.0, group, brevan::Line{{0.0, 0.0}, {1.0, 1.0}}});
    }
  }
  for ([[maybe_unused]] auto step : state) {
    benchmark::DoNotOptimize(ardenix::startNumberedGroup(window, "BOLTS", "M10X60_S"));
  }
  state.SetComplexityN(state.range(0));
}

void plainWalk(benchmark::State& state) {
  std::vector<std::pair<std::string, std::string>> names;
  for (int64_t number = 1; number <= state.range(0); ++number) { names.emplace_back("BOLTS", nameOf(number)); }
  for ([[maybe_unused]] auto step : state) {
    size_t found = 0;
    for (const auto& [parent, name] : names) { found += parent == "BOLTS" && name.starts_with("M10X60_S") ? 1 : 0; }
    benchmark::DoNotOptimize(found);
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(numbering)->Arg(2500)->Arg(5000)->Arg(10000)->Complexity(benchmark::oN);
BENCHMARK(plainWalk)->Arg(2500)->Arg(5000)->Arg(10000)->Complexity(benchmark::oN);

}  // namespace
