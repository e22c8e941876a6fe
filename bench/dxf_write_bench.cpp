#include "bench/dxf_sample.h"
#include "bench/report.h"
#include "host/files/dxf/write/writer.h"

// Writing a drawing as DXF, against putting its numbers alone into one text.
namespace {

using namespace brevan;
using bench::bareNumbers;
using bench::fill;

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
  bench::report(state, static_cast<double>(state.range(0)), write.seconds(), {{"bare numbers", format.seconds()}});
}
BENCHMARK(writeDxf)->Arg(15'000)->Arg(60'000)->Arg(240'000)->Iterations(15)->Unit(benchmark::kMillisecond);

}  // namespace
