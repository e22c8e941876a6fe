// Tracing a diagram: in drawings of ever more lines round a figure of the same size, where the time should stay, and of
// ever larger figures in one drawing.
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/report.h"
#include "bench/township.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"

namespace {

using namespace brevan;

constexpr double kParcelWidth = 20.0;
constexpr double kParcelHeight = 30.0;

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

// A host whose drawing is a township in metres at 1:25,000.
class Office {
 public:
  explicit Office(int parcelsAlong) {
    settings_.SetString("SG_DEFAULTS", "SG_DiaramFile", BREVAN_DATA "/SG Diagram.ini");
    host_.loadModule(ARDENIX_MODULE);
    Drawing& drawing = host_.window().drawing();
    Parameters parameters;
    parameters.setUnit(1000.0);
    parameters.setScale(25000.0);  // at which the largest figure fits the sheet
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

void traceFigures(benchmark::State& state, int parcelsAlong, int parcels, bool sizeIsDrawing) {
  Office office(parcelsAlong);
  bench::BestTime best;
  size_t copied = 0;
  for (auto _ : state) {
    best.measure([&] {
      office.trace(parcelsAlong, parcels);
      return copied = office.copied();
    });
    office.closeDiagram();
  }
  const int lines = 2 * parcelsAlong * (parcelsAlong + 1);
  bench::report(state, sizeIsDrawing ? lines : static_cast<double>(copied), best.seconds(), {});
}

void traceInDrawingOfLines(benchmark::State& state) {
  constexpr int kParcels = 4;
  traceFigures(state, static_cast<int>(state.range(0)), kParcels, true);
}
BENCHMARK(traceInDrawingOfLines)->Arg(71)->Arg(224)->Arg(707)->Iterations(9)->Unit(benchmark::kMillisecond);

void traceFigureOfParcels(benchmark::State& state) {
  constexpr int kTownship = 707;
  traceFigures(state, kTownship, static_cast<int>(state.range(0)), false);
}
BENCHMARK(traceFigureOfParcels)->Arg(50)->Arg(100)->Arg(200)->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
