// The scan of groups that numbering a part prescribes, at three sizes of drawing, against a walk over the
// same names in a plain list.
#include <benchmark/benchmark.h>

#include <stdexcept>

#include "frame/group_numbering.h"
#include "host/macros/variables.h"
#include "host/window/drawing_window.h"

namespace {

// Nobody is asked anything while a group is numbered.
class Nobody : public brevan::User {
 public:
  brevan::PointAnswer askPoint(const std::string&) override { return {}; }
  brevan::TextAnswer askText(const std::string&, const std::string&) override { return {}; }
  BoxAnswer showMessage(const brevan::MessageBox& box) override { throw std::logic_error(box.text); }
  std::optional<size_t> chooseFromMenu(const std::vector<std::string>&) override { return std::nullopt; }
  std::optional<std::string> chooseFile(const brevan::FileRequest&) override { return std::nullopt; }
  std::optional<int> choosePen(const std::string&, int) override { return std::nullopt; }
  bool runDialog(dialog::Dialog&) override { return false; }
  void showStatus(const std::string& text) override { throw std::logic_error(text); }
  void showPrompt(const std::string&) override {}
  void showProgress(int, int, const std::string&) override {}
};

std::string nameOf(int64_t number) { return "M10X60_S" + std::to_string(number); }

void numbering(benchmark::State& state) {
  Nobody user;
  brevan::MacroVariables variables;
  brevan::DrawingWindow window("Drawing1", {user, variables, nullptr});
  for (int64_t number = 1; number <= state.range(0); ++number) {
    const brevan::GroupId group = window.drawing().addGroup("BOLTS", nameOf(number));
    for (int stroke = 0; stroke < 24; ++stroke) {
      window.drawing().add({0, 1, 1, 5.0, group, brevan::Line{{0.0, 0.0}, {1.0, 1.0}}});
    }
  }
  for ([[maybe_unused]] auto step : state) {
    benchmark::DoNotOptimize(ardenix::startNumberedGroup(window, "BOLTS", "M10X60_S"));
  }
  state.SetComplexityN(state.range(0));
}

void plainWalk(benchmark::State& state) {
  std::vector<std::pair<std::string, std::string>> names;
  for (int64_t number = 1; number <= state.range(0); ++number) { names.emplace_back("BOLTS", nameOf(number)); }
  for ([[maybe_unused]] auto step : state) {
    size_t found = 0;
    for (const auto& [parent, name] : names) { found += parent == "BOLTS" && name.starts_with("M10X60_S") ? 1 : 0; }
    benchmark::DoNotOptimize(found);
  }
  state.SetComplexityN(state.range(0));
}

BENCHMARK(numbering)->Arg(2500)->Arg(5000)->Arg(10000)->Complexity(benchmark::oN);
BENCHMARK(plainWalk)->Arg(2500)->Arg(5000)->Arg(10000)->Complexity(benchmark::oN);

}  // namespace
