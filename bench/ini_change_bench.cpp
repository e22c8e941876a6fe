// An INI library of many records: changing one key of it and making its bytes again, with and without opening it
// first, against a plain scan over the lines of the same bytes; and asking for every record of it, as a definition
// store does when it is opened, against putting them into a table of the standard library and asking that.
#include <cstring>
#include <stdexcept>
#include <string>
#include <unordered_map>

#include "bench/report.h"
#include "host/core/ini_file.h"

namespace {

std::string keyOf(int64_t number) { return "Bolt" + std::to_string(number); }

std::string library(int64_t records) {
  std::string text = "; bolts of the house\r\n[Setup]\r\nSolidLT=1\r\n\r\n[BOLTS]\r\nCurrent=0\r\n";
  for (int64_t number = 1; number <= records; ++number) {
    text.append(keyOf(number)).append("=M").append(std::to_string(number));
    text.append(",17.000,6.400,10.000,60.000,26.000,8.160\r\n");
  }
  return text;
}

template <class Action>
void forEachLine(const std::string& text, const Action& action) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (const void* found = std::memchr(at, '\n', static_cast<size_t>(end - at))) {
    const char* const next = static_cast<const char*>(found) + 1;
    action(std::string_view(at, static_cast<size_t>(next - at)));
    at = next;
  }
}

size_t scanLines(const std::string& text) {
  size_t lines = 0;
  forEachLine(text, [&lines](std::string_view) { ++lines; });
  return lines;
}

// The record that is changed is the first or the one in the middle.
void changeOneRecord(benchmark::State& state, bool opening, bool first) {
  bench::keepBigBlocks();
  const std::string text = library(state.range(0));
  const std::string key = keyOf(first ? 1 : state.range(0) / 2);
  bench::BestTime scan;
  bench::BestTime open;
  bench::BestTime change;
  for (auto _ : state) {
    scan.measure([&] { return scanLines(text); });
    std::string bytes = text;  // as it comes from the disk
    brevan::IniFile file;
    open.measure([&] { return (file = brevan::IniFile::parse(std::move(bytes))).lookup("BOLTS", key); });
    change.measure([&] {
      file.set("BOLTS", key, "M8x40,13.000,5.300,8.000,40.000,22.000,6.466");
      return file.bytes();
    });
  }
  bench::report(state, static_cast<double>(state.range(0)), change.seconds() + (opening ? open.seconds() : 0.0),
                {{"scan over the lines", scan.seconds()}});
}
void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(10'000)->Arg(30'000)->Arg(100'000)->Iterations(60)->Unit(benchmark::kMillisecond);
}
BENCHMARK_CAPTURE(changeOneRecord, firstInOpenFile, false, true)->Apply(sizes);
BENCHMARK_CAPTURE(changeOneRecord, middleInOpenFile, false, false)->Apply(sizes);
BENCHMARK_CAPTURE(changeOneRecord, openingTheFile, true, true)->Apply(sizes);

template <class Known>
size_t countWhile(const Known& known) {
  int64_t count = 0;
  while (known(keyOf(count + 1))) { ++count; }
  return static_cast<size_t>(count);
}

size_t countInTable(const std::string& text) {
  std::unordered_map<std::string_view, std::string_view> table;
  forEachLine(text, [&table](std::string_view line) {
    const size_t sign = std::min(line.find('='), line.size());
    table.emplace(line.substr(0, sign), line.substr(sign));
  });
  return countWhile([&table](const std::string& key) { return table.contains(key); });
}

void countRecords(benchmark::State& state) {
  bench::keepBigBlocks();
  const std::string text = library(state.range(0));
  bench::BestTime ours;
  bench::BestTime table;
  for (auto _ : state) {
    size_t count = 0;
    ours.measure([&] {
      const brevan::IniFile file = brevan::IniFile::parse(text);
      return count = countWhile([&file](const std::string& key) { return file.lookup("BOLTS", key).has_value(); });
    });
    table.measure([&] { return countInTable(text); });
    if (count != static_cast<size_t>(state.range(0))) { throw std::runtime_error("records are missing"); }
  }
  bench::report(state, static_cast<double>(state.range(0)), ours.seconds(), {{"standard hash table", table.seconds()}});
}
BENCHMARK(countRecords)->Apply(sizes);

}  // namespace
