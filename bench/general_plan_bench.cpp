// A general plan of ever more erven: the table of their areas, dimensions of all their sides beside the tracing of the
// erven alone, and how long an Escape waits while they are drawn.
#include <algorithm>
#include <filesystem>
#include <string>

#include "bench/report.h"
#include "bench/township.h"
#include "bench/yes_user.h"
#include "host/window/host.h"

namespace {

using namespace brevan;

// Gives points in turn and takes what is offered for the numbers. Measures how long he is not listened to, and presses
// Escape if he is told to.
class Surveyor : public bench::YesUser {
 public:
  std::vector<Point> points;
  int escapeAt = 0;  // the how manieth time that he is shown how far the work went; 0: never

  // The longest time since he was listened to last.
  [[nodiscard]] double longestWait() { return noteWait(), longestWait_; }
  [[nodiscard]] int shown() const { return shown_; }
  void begin() { heard_ = bench::ownSeconds(), longestWait_ = 0.0, shown_ = 0; }

  bool stopsAtProgress(int, int, const std::string&) override {
    noteWait();
    return ++shown_ == escapeAt;
  }

  PointAnswer askPoint(const std::string&) override {
    if (next_ == points.size()) { return {PromptEnd::kSpace, {}}; }
    return {PromptEnd::kGiven, points.at(next_++)};
  }
  TextAnswer askText(const std::string&, const std::string& offered) override {
    return {PromptEnd::kGiven, offered.empty() ? "1" : offered, !offered.empty()};
  }

 private:
  void noteWait() {
    const double now = bench::ownSeconds();
    longestWait_ = std::max(longestWait_, now - heard_);
    heard_ = now;
  }

  size_t next_ = 0;
  double heard_ = 0.0;
  double longestWait_ = 0.0;
  int shown_ = 0;
};

// A host whose drawing is a township in metres at 1:500.
class Office {
 public:
  explicit Office(const bench::Township& town) {
    settings_.SetString("SG_DEFAULTS", "SG_GenPlanFile", BREVAN_DATA "/General Plan.ini");
    host_.loadModule(ARDENIX_MODULE);
    Parameters parameters;
    parameters.setUnit(1000.0);
    parameters.setScale(500.0);
    parameters.setCoordinateSystem(0);
    parameters.setAreaUnit(8);
    drawing().setParameters(parameters);
    for (const Segment& side : town.sides) { drawing().add({.geometry = side}); }
  }
  [[nodiscard]] Drawing& drawing() { return host_.window().drawing(); }
  void numberErven(const bench::Township& town) {
    user_.points = {Point{-100, 0}};
    user_.points.insert(user_.points.end(), town.insides.begin(), town.insides.end());
    host_.runCommand("SG_AreaTable");
  }
  void addNumbers(const bench::Township& town) {
    const int layer = drawing().addLayer({"STAND_NO"});
    for (size_t erf = 0; erf < town.insides.size(); ++erf) {
      drawing().add({.layer = layer, .geometry = Text{.at = town.insides[erf], .text = std::to_string(erf + 1)}});
    }
  }
  void dimensionErven() { host_.runCommand("SG_MultiSurveyDims"); }
  // The longest time for which an Escape would wait, until the command has ended. Pressed where told, as above.
  double longestWait(int escapeAt) {
    user_.escapeAt = escapeAt;
    user_.begin();
    dimensionErven();
    return user_.longestWait();
  }
  [[nodiscard]] int shown() const { return user_.shown(); }
  // Without drawing anything.
  size_t traceErven(const bench::Township& town) {
    size_t found = 0;
    for (const Point inside : town.insides) {
      found += static_cast<size_t>(host_.window().gsAutoPerim(inside.x, inside.y));
    }
    return found;
  }

 private:
  std::string folder_ = (std::filesystem::temp_directory_path() / "brevan_general_plan_bench").string();
  Surveyor user_;
  FileServices files_{BREVAN_DATA, BREVAN_DATA, FileServices::Confinement{folder_, [](const std::string&) {}}};
  INI_LIST settings_{""};
  Host host_{HostParts{user_, files_, settings_, nullptr, ""}};
};

void areaTable(benchmark::State& state) {
  const bench::Township town = bench::township(static_cast<int>(state.range(0)));
  bench::BestTime best;
  for (auto _ : state) {
    Office office(town);
    best.measure([&] {
      office.numberErven(town);
      return office.drawing().count();
    });
  }
  bench::report(state, static_cast<double>(town.insides.size()), best.seconds(), {});
}
BENCHMARK(areaTable)->Arg(50)->Arg(100)->Arg(200)->Iterations(3)->Unit(benchmark::kMillisecond);

void dimensions(benchmark::State& state) {
  const bench::Township town = bench::township(static_cast<int>(state.range(0)));
  bench::BestTime best;
  bench::BestTime alone;
  for (auto _ : state) {
    Office tracing(town);
    alone.measure([&] { return tracing.traceErven(town); });
    Office office(town);
    office.addNumbers(town);
    best.measure([&] {
      office.dimensionErven();
      return office.drawing().count();
    });
  }
  bench::report(state, static_cast<double>(town.insides.size()), best.seconds(), {{"tracing alone", alone.seconds()}});
}
BENCHMARK(dimensions)->Arg(50)->Arg(100)->Arg(200)->Iterations(3)->Unit(benchmark::kMillisecond);

// From Escape to the end of the command, pressed just after the user was listened to: while erven are traced, while
// dimensions are drawn, or never, which shows what is not listened to at all.
void escape(benchmark::State& state) {
  const bench::Township town = bench::township(static_cast<int>(state.range(0)));
  double longest = 0.0;
  for (auto _ : state) {
    int steps = 0;
    for (const int part : {0, 1, 3}) {  // quarters of the way
      Office office(town);
      office.addNumbers(town);
      longest = std::max(longest, office.longestWait(steps * part / 4));
      if (part == 0) { steps = office.shown(); }
    }
  }
  bench::report(state, static_cast<double>(town.insides.size()), longest, {});
}
BENCHMARK(escape)->Arg(50)->Arg(100)->Arg(200)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
