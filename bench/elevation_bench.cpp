// The elevation of a face with ever more windows: each picked one by one, as are as many walls, and all of them by one
// pick of the wall; beside the same picks alone.
#include <filesystem>
#include <string>
#include <vector>

#include "bench/report.h"
#include "bench/yes_user.h"
#include "host/window/host.h"

namespace {

using namespace brevan;

constexpr double kSpacing = 2000.0;

class Architect : public bench::YesUser {
 public:
  std::vector<PointAnswer> answers;

  void give(Point at) { answers.push_back({PromptEnd::kGiven, at, ""}); }
  void stop() { answers.push_back({PromptEnd::kSpace, {}, ""}); }
  PointAnswer askPoint(const std::string&) override {
    return next_ < answers.size() ? answers[next_++] : PointAnswer{PromptEnd::kSpace, {}, ""};
  }

 private:
  size_t next_ = 0;
};

// A house whose south face has windows side by side, and a wall square to it between any two.
class House {
 public:
  explicit House(int windows) : windows_(windows) {
    std::filesystem::create_directories(folder_);
    settings_.SetString("ArchitecturalTools", "SpecFile", BREVAN_DATA "/ArchSpecs.ini");
    host_.loadModule(ARDENIX_MODULE);
    Parameters parameters;
    parameters.setScale(100.0);
    drawing().setParameters(parameters);
    drawing().add({.geometry = Line{{0, 0}, {kSpacing * windows, 0}}});
    for (int wall = 0; wall < windows; ++wall) {
      drawing().add({.geometry = Line{{kSpacing * wall, 0}, {kSpacing * wall, 5000}}});
    }
    host_.runMacro("NEWSYMFL \"Symbols/Windows/W1200.drg\" \"N\" \"Y\"");
    for (int window = 0; window < windows; ++window) {
      host_.runMacro("ADDSYM \"W1200P\" [" + std::to_string(static_cast<int>(kSpacing * window) + 400) + ",0] 1 0");
    }
  }
  size_t drawElevation(bool oneByOne) {
    user_.give({300, 60});
    user_.give({300, -3000});
    for (int window = 0; oneByOne && window < windows_; ++window) { user_.give({kSpacing * window + 1000, 110}); }
    if (!oneByOne) { user_.give({kSpacing * windows_ - 100, -60}); }
    user_.stop();
    for (int wall = 0; wall < windows_; ++wall) { user_.give({kSpacing * wall, 4000}); }
    host_.runCommand("ArchDrawElev");
    return drawing().count();
  }
  // As many enquiries as the picks above make, and nothing drawn.
  size_t pickOnly() {
    size_t found = 0;
    for (int window = 0; window < windows_; ++window) {
      found += host_.window().pick({kSpacing * window + 1000, 110}, kAnyPrimitive) != 0 ? 1 : 0;
      found += host_.window().pick({kSpacing * window, 4000}, kLinePrimitive) != 0 ? 1 : 0;
    }
    return found;
  }
  [[nodiscard]] Drawing& drawing() { return host_.window().drawing(); }

 private:
  int windows_;
  std::string folder_ = (std::filesystem::temp_directory_path() / "brevan_elevation_bench").string();
  Architect user_;
  FileServices files_{BREVAN_DATA, BREVAN_DATA, FileServices::Confinement{folder_, [](const std::string&) {}}};
  INI_LIST settings_{""};
  Host host_{HostParts{user_, files_, settings_, nullptr, ""}};
};

void elevation(benchmark::State& state, bool oneByOne) {
  bench::BestTime best;
  bench::BestTime picks;
  const int windows = static_cast<int>(state.range(0));
  for (auto _ : state) {
    House house(windows);
    picks.measure([&] { return house.pickOnly(); });
    best.measure([&] { return house.drawElevation(oneByOne); });
  }
  bench::report(state, windows, best.seconds(), {{"picks alone", picks.seconds()}});
}
BENCHMARK_CAPTURE(elevation, oneByOne, true)->Arg(50)->Arg(200)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(elevation, byTheWall, false)->Arg(50)->Arg(200)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
