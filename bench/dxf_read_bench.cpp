#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>

#include "bench/dxf_sample.h"
#include "bench/report.h"
#include "host/files/dxf/read/reader.h"
#include "host/files/dxf/write/writer.h"

// Opening a DXF file, against mapping it and parsing its numbers with std::from_chars, told where they stand; and
// against a file of the bare numbers, which is a fifth as long: a line's four numbers stand among 26 other lines.
namespace {

using namespace brevan;
using bench::bareNumbers;
using bench::fill;

// A file's bytes, mapped as long as it lives.
class MappedFile {
 public:
  explicit MappedFile(const std::string& path) : size_(static_cast<size_t>(std::filesystem::file_size(path))) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    mapped_ = ::mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, file, 0);
    ::close(file);
    if (mapped_ == MAP_FAILED) { throw std::runtime_error("cannot map " + path); }
  }
  ~MappedFile() { ::munmap(mapped_, size_); }
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  [[nodiscard]] std::string_view bytes() const { return {static_cast<const char*>(mapped_), size_}; }

 private:
  size_t size_;
  void* mapped_;
};

double parseBareNumbers(const std::string& path) {
  const MappedFile file(path);
  const char* at = file.bytes().data();
  const char* const end = at + file.bytes().size();
  double sum = 0.0;
  while (at < end) {
    double value = 0.0;
    at = std::from_chars(at, end, value).ptr + 1;
    sum += value;
  }
  return sum;
}

// Where the coordinates, radii and angles of a file's lines and arcs stand in it.
std::vector<size_t> placesOfNumbers(std::string_view dxf) {
  constexpr std::array<std::string_view, 7> kCodes = {"10", "20", "11", "21", "40", "50", "51"};
  std::vector<size_t> places;
  size_t at = dxf.find("ENTITIES\n") + 9;
  const size_t end = dxf.find("ENDSEC\n", at);
  while (at < end) {
    const size_t value = dxf.find('\n', at) + 1;
    if (std::find(kCodes.begin(), kCodes.end(), dxf.substr(at, value - 1 - at)) != kCodes.end()) {
      places.push_back(value);
    }
    at = dxf.find('\n', value) + 1;
  }
  return places;
}

double parseMapped(const std::string& path, const std::vector<size_t>& places) {
  const MappedFile file(path);
  const char* const end = file.bytes().data() + file.bytes().size();
  double sum = 0.0;
  for (const size_t place : places) {
    double value = 0.0;
    std::from_chars(file.bytes().data() + place, end, value);
    sum += value;
  }
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
  const std::vector<size_t> places = placesOfNumbers(MappedFile(dxf).bytes());
  bench::BestTime bare;
  bench::BestTime parse;
  bench::BestTime read;
  for (auto _ : state) {
    bare.measure([&] { return parseBareNumbers(numbers); });
    parse.measure([&] { return parseMapped(dxf, places); });
    read.measure([&] { return openDxf(dxf).drawing.count(); });
  }
  std::filesystem::remove(dxf);
  std::filesystem::remove(numbers);
  bench::report(state, static_cast<double>(state.range(0)), read.seconds(),
                {{"mapping and parsing", parse.seconds()}, {"file of bare numbers", bare.seconds()}});
}
BENCHMARK(readDxf)->Arg(15'000)->Arg(60'000)->Arg(240'000)->Iterations(30)->Unit(benchmark::kMillisecond);

}  // namespace
