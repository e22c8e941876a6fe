// Sectional schemes of ever more sections: reading a list, making its quotas add up, drawing the schedule; and reading
// ever longer listings of control points.
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "bench/report.h"
#include "bench/yes_user.h"
#include "frame/host/number_text.h"
#include "host/window/host.h"
#include "survey/control_listings.h"
#include "survey/control_store.h"
#include "survey/sectional/quotas.h"
#include "survey/sectional/section_file.h"
#include "survey/sectional/section_rows.h"

namespace {

using namespace brevan;
using namespace ardenix::survey;

std::string folder() { return (std::filesystem::temp_directory_path() / "brevan_sectional_bench").string(); }

std::string listOf(int sections) {
  std::filesystem::create_directories(folder());
  const std::string path = folder() + "/sections.csv";
  std::mt19937 random(5);
  std::uniform_int_distribution<int> area(20, 400);
  std::ofstream file(path);
  for (int n = 1; n <= sections; ++n) { file << n << ',' << n % 9 + 1 << ",," << area(random) << ",0\n"; }
  return path;
}

// The free functions of the seam need a host.
class Office {
 public:
  Office() {
    settings_.SetString("SG_DEFAULTS", "SG_SectionalFile", BREVAN_DATA "/Sectional Plan.ini");
    host_.loadModule(ARDENIX_MODULE);
    Parameters parameters;
    parameters.setUnit(1000.0);
    parameters.setScale(500.0);
    parameters.setCoordinateSystem(0);
    host_.window().drawing().setParameters(parameters);
  }
  void run(const char* command) { host_.runCommand(command); }
  bench::YesUser& user() { return user_; }

 private:
  bench::YesUser user_;
  FileServices files_{BREVAN_DATA, BREVAN_DATA, FileServices::Confinement{folder(), [](const std::string&) {}}};
  INI_LIST settings_{""};
  Host host_{HostParts{user_, files_, settings_, nullptr, ""}};
};

void loadList(benchmark::State& state) {
  const Office office;
  const std::string path = listOf(static_cast<int>(state.range(0)));
  bench::BestTime best;
  for (auto _ : state) {
    best.measure([&] {
      SectionList list;
      list.add(loadSections(path, 0).sections);
      return list.sections().size();
    });
  }
  bench::report(state, static_cast<double>(state.range(0)), best.seconds(), {});
}
BENCHMARK(loadList)->Arg(25'000)->Arg(50'000)->Arg(100'000)->Iterations(5)->Unit(benchmark::kMillisecond);

void adjustQuotas(benchmark::State& state) {
  const Office office;
  SectionList list;
  list.add(loadSections(listOf(static_cast<int>(state.range(0))), 0).sections);
  bench::BestTime best;
  for (auto _ : state) {
    best.measure([&] {
      SectionList adjusted = list;
      const auto adjustment = adjustedByLargestRemainder(list);
      for (const Section& section : adjustment->adjusted) { adjusted.replace(section); }
      return sectionRows(adjusted, PartView::kCollapsed, Quotas(adjusted.sections())).size();
    });
  }
  bench::report(state, static_cast<double>(state.range(0)), best.seconds(), {});
}
BENCHMARK(adjustQuotas)->Arg(2'500)->Arg(5'000)->Arg(10'000)->Iterations(20)->Unit(benchmark::kMillisecond);

void drawSchedule(benchmark::State& state) {
  constexpr double kLinesASheet = 53.0;
  const std::string path = listOf(static_cast<int>(state.range(0)));
  bench::BestTime best;
  for (auto _ : state) {
    Office office;
    office.run("SG_SectionEditor");
    office.user().pressed = "Load";
    office.user().file = path;
    office.run("SG_SectionMgr");
    office.user().pressed.clear();
    best.measure([&] {
      office.run("SG_SectionGenPq");
      return 0;
    });
  }
  const auto sections = static_cast<double>(state.range(0));
  bench::report(state, sections, best.seconds() / (sections / kLinesASheet), {});
}
BENCHMARK(drawSchedule)->Arg(2'000)->Arg(10'000)->Iterations(3)->Unit(benchmark::kMillisecond);

void readListing(benchmark::State& state) {
  const Office office;
  std::vector<std::string> lines;
  lines.reserve(static_cast<size_t>(state.range(0)));
  for (int n = 0; n < state.range(0); ++n) {
    lines.push_back(numberText::format("TSM %-12d   %12.2f %11.2f   %5.1f                ", n, -48712.34 - n,
                                       2914213.56 + n, 150.0));
  }
  bench::BestTime best;
  for (auto _ : state) {
    best.measure([&] {
      ControlStore store(folder() + "/none.ini");
      for (const ListedPoint& point : marksOfListing(lines)) { store.add(ControlCategory::kTownSurveyMark, point); }
      return store.keys(ControlCategory::kTownSurveyMark).size();
    });
  }
  bench::report(state, static_cast<double>(state.range(0)), best.seconds(), {});
}
BENCHMARK(readListing)->Arg(50'000)->Arg(100'000)->Arg(200'000)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
