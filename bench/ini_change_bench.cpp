#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>

#include "host/core/ini_file.h"

// Changing one key of an open library and making its bytes again takes at most twice a plain scan over
// the lines of the same bytes; opening it first, at most four times the scan. Measured in the same run,
// the best of all iterations of each, because other programs share the machine.
namespace {

constexpr int kRecords = 100'000;
constexpr double kChangeBound = 2.0;
constexpr double kOpenBound = 4.0;

std::string library() {
  // Big blocks are kept between iterations: clearing fresh pages would drown the work that is measured.
  mallopt(M_MMAP_THRESHOLD, 1 << 28);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  std::string text = "; bolts of the house\r\n[Setup]\r\nSolidLT=1\r\n\r\n[BOLTS]\r\nCurrent=0\r\n";
  for (int i = 1; i <= kRecords; ++i) {
    const std::string number = std::to_string(i);
    text.append("Bolt").append(number).append("=M").append(number);
    text.append(",17.000,6.400,10.000,60.000,26.000,8.160\r\n");
  }
  return text;
}

size_t scanLines(const std::string& text) {
  size_t lines = 0;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (const void* found = std::memchr(at, '\n', static_cast<size_t>(end - at))) {
    at = static_cast<const char*>(found) + 1;
    ++lines;
  }
  return lines;
}

template <class Action>
void keepBest(double& best, Action action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  best = std::min(best, taken.count());
}

// The argument is the number of the record that is changed.
void changeOneRecord(benchmark::State& state, bool opening) {
  const std::string text = library();
  const std::string key = "Bolt" + std::to_string(state.range(0));
  double scan = 1e9;
  double open = 1e9;
  double change = 1e9;
  for (auto _ : state) {
    keepBest(scan, [&] { benchmark::DoNotOptimize(scanLines(text)); });
    std::string bytes = text;  // as it comes from the disk
    brevan::IniFile file;
    keepBest(open, [&] { file = brevan::IniFile::parse(std::move(bytes)); });
    keepBest(change, [&] {
      file.set("BOLTS", key, "M8x40,13.000,5.300,8.000,40.000,22.000,6.466");
      benchmark::DoNotOptimize(file.bytes());
    });
  }
  const double ratio = (opening ? open + change : change) / scan;
  state.counters["ratio"] = ratio;
  if (ratio > (opening ? kOpenBound : kChangeBound)) {
    state.SkipWithError(("ratio to the plain scan: " + std::to_string(ratio)).c_str());
  }
}
BENCHMARK_CAPTURE(changeOneRecord, inOpenFile, false)
    ->Arg(1)
    ->Arg(kRecords / 2)
    ->Iterations(100)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(changeOneRecord, openingTheFile, true)
    ->Arg(1)
    ->Arg(kRecords)
    ->Iterations(100)
    ->Unit(benchmark::kMillisecond);

// Counting the records, as a definition store does when it is opened, asks for every one of them.
void countRecords(benchmark::State& state) {
  const std::string text = library();
  for (auto _ : state) {
    const brevan::IniFile file = brevan::IniFile::parse(text);
    int count = 0;
    while (file.lookup("BOLTS", "Bolt" + std::to_string(count + 1))) { ++count; }
    if (count != kRecords) { state.SkipWithError("records are missing"); }
  }
}
BENCHMARK(countRecords)->Unit(benchmark::kMillisecond);

}  // namespace
