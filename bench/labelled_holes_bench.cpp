// The button "Add All Holes" of the coordinate table in ever larger drawings, most of which are lines.
#include <filesystem>
#include <stdexcept>
#include <string>

#include "bench/report.h"
#include "host/window/dialog_session.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"

namespace {

using namespace brevan;

// Lists the holes and leaves.
class Lister : public SilentUser {
 public:
  bench::BestTime best;
  size_t listed = 0;

  bool runDialog(dialog::Dialog& dialog) override {
    DialogSession session(dialog, *this, nullptr);
    session.open();
    for (int control = 0; control < static_cast<int>(dialog.controls().size()); ++control) {
      if (dialog.control(control).caption == "Add All Holes") {
        best.measure([&] { return session.press(control).has_value(); });
      }
      const auto* list = std::get_if<dialog::ColumnList>(&dialog.control(control).state);
      if (list != nullptr) { holes_ = list; }
    }
    listed = holes_->rows.size();
    session.cancel();
    return false;
  }

 private:
  const dialog::ColumnList* holes_ = nullptr;
};

// Of ten primitives eight are lines, one a circle and one its label.
void fill(Drawing& drawing, int count) {
  constexpr int kApart = 30;
  constexpr int kAcross = 200;
  for (int place = 0; place < count / 10; ++place) {
    const int column = place % kAcross;
    const int row = place / kAcross;
    const Point at{1.0 * column * kApart, 1.0 * row * kApart};
    for (int line = 0; line < 8; ++line) { drawing.add({.geometry = Line{at, at + Point{20.0, 2.0 * line}}}); }
    const Point right = at + Point{3, 0};
    drawing.add({.geometry = Arc{right, at, right}});
    drawing.add({.geometry = Text{.at = at + Point{4, 4}, .text = "A" + std::to_string(place)}});
  }
}

void addAllHoles(benchmark::State& state) {
  const auto count = static_cast<int>(state.range(0));
  const std::string folder = (std::filesystem::temp_directory_path() / "brevan_labelled_holes_bench").string();
  Lister user;
  FileServices files(BREVAN_DATA, BREVAN_DATA, FileServices::Confinement{folder, [](const std::string&) {}});
  INI_LIST settings("");
  settings.SetString("MechanicalTools", "SpecFile", BREVAN_DATA "/ISO Mechspecs.ini");
  Host host(HostParts{user, files, settings, nullptr, ""});
  host.loadModule(ARDENIX_MODULE);
  fill(host.window().drawing(), count);
  for (auto _ : state) { host.runCommand("MechDrawCoordTable"); }
  if (user.listed != static_cast<size_t>(count) / 10) { throw std::logic_error("holes are missing"); }
  bench::report(state, count, user.best.seconds(), {});
}
BENCHMARK(addAllHoles)->Arg(25'000)->Arg(50'000)->Arg(100'000)->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace
