// The scan of groups that numbering a part prescribes, at three sizes of drawing, against a walk over the
// same names in a plain list.
#include "bench/report.h"
#include "bench/silent_window.h"
#include "frame/drafting/group_numbering.h"

namespace {

std::string nameOf(int64_t number) { return "M10X60_S" + std::to_string(number); }

void fill(brevan::Drawing& drawing, int64_t groups) {
  constexpr int kStrokes = 24;
  for (int64_t number = 1; number <= groups; ++number) {
    const brevan::GroupId group = drawing.addGroup("BOLTS", nameOf(number));
    for (int stroke = 0; stroke < kStrokes; ++stroke) {
      drawing.add({0, 1, 1, 5.0, group, brevan::Line{{0.0, 0.0}, {1.0, 1.0}}});
    }
  }
}

void numberPart(benchmark::State& state) {
  constexpr int kScans = 20;  // so many at a time, because asking for the time takes some too
  bench::SilentWindow session;
  fill(session.drawing(), state.range(0));
  std::vector<std::pair<std::string, std::string>> names;
  for (int64_t number = 1; number <= state.range(0); ++number) { names.emplace_back("BOLTS", nameOf(number)); }
  bench::BestTime ours;
  bench::BestTime walk;
  for ([[maybe_unused]] auto step : state) {
    ours.measure([&] {
      size_t sum = 0;
      for (int scan = 0; scan < kScans; ++scan) {
        sum += ardenix::startNumberedGroup(session.window(), "BOLTS", "M10X60_S").size();
      }
      return sum;
    });
    walk.measure([&] {
      size_t found = 0;
      for (int scan = 0; scan < kScans; ++scan) {
        for (const auto& [parent, name] : names) { found += parent == "BOLTS" && name.starts_with("M10X60_S") ? 1 : 0; }
        benchmark::DoNotOptimize(found);
      }
      return found;
    });
  }
  bench::report(state, static_cast<double>(state.range(0)), ours.seconds() / kScans,
                {{"walk over the names", walk.seconds() / kScans}});
}
BENCHMARK(numberPart)->Arg(2'500)->Arg(5'000)->Arg(10'000)->Iterations(40)->Unit(benchmark::kMillisecond);

}  // namespace
