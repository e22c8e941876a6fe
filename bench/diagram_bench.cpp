// A diagram takes as long as what lies round its figure, however large the drawing is that it is traced in.
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/best_time.h"
#include "bench/township.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"

namespace {

using namespace brevan;

constexpr double kParcelWidth = 20.0;
constexpr double kParcelHeight = 30.0;
constexpr double kBoundOfDrawing = 2.0;       // the time in the largest drawing to that in the smallest
constexpr double kBoundOfSurroundings = 2.5;  // the time with twice the surroundings

// Picks corners and takes what is offered for their labels; leaves the frame's texts empty.
class Surveyor : public SilentUser {
 public:
  std::vector<Point> corners;

  PointAnswer askPoint(const std::string&) override {
    return {PromptEnd::kGiven, corners.at(next_++ % corners.size())};
  }
  TextAnswer askText(const std::string& prompt, const std::string& offered) override {
    const bool label = prompt.starts_with("Enter label");
    return {PromptEnd::kGiven, label ? offered : "", label};
  }
  BoxAnswer showMessage(const MessageBox& box) override { throw std::logic_error(box.text); }
  // Corners that were asked for start over.
  void begin() { next_ = 0; }

 private:
  size_t next_ = 0;
};

// A host whose drawing is a township in metres at 1:500.
class Office {
 public:
  explicit Office(int parcelsAlong) {
    settings_.SetString("SG_DEFAULTS", "SG_DiaramFile", BREVAN_DATA "/SG Diagram.ini");
    host_.loadModule(ARDENIX_MODULE);
    Drawing& drawing = host_.window().drawing();
    Parameters parameters;
    parameters.setUnit(1000.0);
    parameters.setScale(500.0);
    parameters.setCoordinateSystem(0);
    drawing.setParameters(parameters);
    drawing.beginLoading();
    for (const Segment& side : bench::township(parcelsAlong).sides) {
      drawing.load(drawing.lastId() + 1, {.geometry = side});
    }
    drawing.endLoading();
  }

  // Traces a rectangle of so many parcels in the middle.
  void trace(int parcelsAlong, int parcels) {
    const Point middle{parcelsAlong / 2 * kParcelWidth, parcelsAlong / 2 * kParcelHeight};
    const Point opposite = middle + Point{parcels * kParcelWidth, parcels * kParcelHeight};
    user_.corners = {middle, {opposite.x, middle.y}, opposite, {middle.x, opposite.y}};
    user_.begin();
    host_.runCommand("SG_TracePolyArea");
  }
  [[nodiscard]] size_t copied() { return host_.window().drawing().count(); }
  void closeDiagram() {
    host_.closeWindow(host_.window().name());
    host_.goToWindow("Drawing1");
  }

 private:
  Surveyor user_;
  FileServices files_{BREVAN_DATA, BREVAN_DATA};
  INI_LIST settings_{""};
  Host host_{HostParts{user_, files_, settings_, nullptr, ""}};
};

double timeOf(benchmark::State& state, int parcelsAlong, int parcels, int rounds) {
  Office office(parcelsAlong);
  bench::BestTime best;
  for (int round = 0; round < rounds; ++round) {
    best.measure([&] {
      office.trace(parcelsAlong, parcels);
      return office.copied();
    });
    state.counters["primitives"] = static_cast<double>(office.copied());
    office.closeDiagram();
  }
  return best.seconds();
}

// How the time compares with that of the row before.
void compare(benchmark::State& state, double seconds, double reference, double bound) {
  state.counters["milliseconds"] = seconds * 1e3;
  state.counters["ratio"] = seconds / reference;
  if (seconds > bound * reference) { state.SkipWithError(("ratio: " + std::to_string(seconds / reference)).c_str()); }
}

void inADrawingOfLines(benchmark::State& state) {
  static double smallest = 0.0;
  constexpr int kParcels = 4;
  constexpr int kRounds = 7;
  double seconds = 0.0;
  for (auto _ : state) { seconds = timeOf(state, static_cast<int>(state.range(0)), kParcels, kRounds); }
  if (smallest == 0.0) { smallest = seconds; }
  compare(state, seconds, smallest, kBoundOfDrawing);
}
BENCHMARK(inADrawingOfLines)->Arg(71)->Arg(224)->Arg(707)->Iterations(1)->Unit(benchmark::kMillisecond);

void roundAFigureOfParcels(benchmark::State& state) {
  static double before = 0.0;
  constexpr int kTownship = 707;
  constexpr int kRounds = 5;
  double seconds = 0.0;
  for (auto _ : state) { seconds = timeOf(state, kTownship, static_cast<int>(state.range(0)), kRounds); }
  compare(state, seconds, before == 0.0 ? seconds : before, kBoundOfSurroundings);
  before = seconds;
}
BENCHMARK(roundAFigureOfParcels)->Arg(50)->Arg(71)->Arg(100)->Arg(141)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
