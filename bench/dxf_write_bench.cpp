#include <benchmark/benchmark.h>

#include <random>

#include "bench/best_time.h"
#include "bench/dxf_sample.h"
#include "frame/host/number_text.h"
#include "host/files/dxf_writer.h"

// Writing a drawing as DXF takes at most kBound times what putting its numbers into one text takes. Measured in the
// same run, the best of all iterations of each, because other programs share the machine.
namespace {

using namespace brevan;
using bench::bareNumbers;
using bench::fill;

constexpr double kBound = 1.5;

void writeDxf(benchmark::State& state) {
  bench::keepBigBlocks();
  Drawing drawing;
  fill(drawing, static_cast<int>(state.range(0)));
  bench::BestTime format;
  bench::BestTime write;
  for (auto _ : state) {
    format.measure([&] { return bareNumbers(drawing); });
    write.measure([&] { return drawingDxf(drawing); });
  }
  const double ratio = write.seconds() / format.seconds();
  state.counters["ratio"] = ratio;
  if (ratio > kBound) { state.SkipWithError(("ratio to the bare numbers: " + std::to_string(ratio)).c_str()); }
}
BENCHMARK(writeDxf)->Arg(15'000)->Arg(60'000)->Arg(240'000)->Iterations(15)->Unit(benchmark::kMillisecond);

}  // namespace
