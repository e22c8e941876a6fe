#include <benchmark/benchmark.h>

#include <random>

#include "bench/best_time.h"
#include "frame/host/number_text.h"
#include "host/files/dxf_writer.h"

// Writing a drawing as DXF takes at most kBound times what putting its numbers into one text takes. Measured in the
// same run, the best of all iterations of each, because other programs share the machine.
namespace {

using namespace brevan;

constexpr double kBound = 1.5;

constexpr int kPrimitivesAGroup = 24;

// Lines and arcs with coordinates of full length, two arcs in ten, in groups as parts are.
void fill(Drawing& drawing, int primitives) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> coordinate(0.0, 10'000.0);
  const auto point = [&] { return Point{coordinate(random), coordinate(random)}; };
  drawing.beginStep("fill");
  GroupId group = 0;
  for (int n = 0; n < primitives; ++n) {
    if (n % kPrimitivesAGroup == 0) { group = drawing.addGroup("BOLTS", "M10_S" + std::to_string(n)); }
    Primitive primitive;
    primitive.group = group;
    primitive.pen = 1 + n / 7 % 5;
    if (n % 10 < 8) {
      primitive.geometry = Line{point(), point()};
    } else {
      primitive.geometry = Arc{point(), point(), point(), n % 2 == 0};
    }
    drawing.add(std::move(primitive));
  }
  drawing.endStep();
}

// The numbers that the file holds, each on a line: what no writer of text can do without.
std::string formatNumbers(const Drawing& drawing) {
  std::string out;
  const auto put = [&out](double value) {
    numberText::appendShortest(out, value);
    out += '\n';
  };
  drawing.forEach([&](PrimitiveId, const Primitive& primitive) {
    if (const Line* line = std::get_if<Line>(&primitive.geometry)) {
      put(line->a.x), put(line->a.y), put(line->b.x), put(line->b.y);
    } else if (const Arc* arc = std::get_if<Arc>(&primitive.geometry)) {
      put(arc->centre.x), put(arc->centre.y), put(arcRadius(*arc));
      put(degrees(arcStartAngle(*arc))), put(degrees(angleOf(arc->end - arc->centre)));
    }
  });
  return out;
}

void writeDxf(benchmark::State& state) {
  bench::keepBigBlocks();
  Drawing drawing;
  fill(drawing, static_cast<int>(state.range(0)));
  bench::BestTime format;
  bench::BestTime write;
  for (auto _ : state) {
    format.measure([&] { return formatNumbers(drawing); });
    write.measure([&] { return drawingDxf(drawing); });
  }
  const double ratio = write.seconds() / format.seconds();
  state.counters["ratio"] = ratio;
  if (ratio > kBound) { state.SkipWithError(("ratio to the bare numbers: " + std::to_string(ratio)).c_str()); }
}
BENCHMARK(writeDxf)->Arg(15'000)->Arg(60'000)->Arg(240'000)->Iterations(15)->Unit(benchmark::kMillisecond);

}  // namespace
