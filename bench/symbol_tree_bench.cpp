// The symbol library of ever more files in a hundred folders: until its tree is set up, and until what a search finds
// is listed.
#include <QApplication>
#include <QLineEdit>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/report.h"
#include "desktop/symbol_tree.h"

namespace {

using namespace brevan;

std::string libraryOf(int files) {
  const auto folder = std::filesystem::temp_directory_path() / ("brevan_symbols_" + std::to_string(files));
  constexpr int kFolders = 100;
  for (int file = 0; file < files; ++file) {
    const auto below = folder / ("Folder " + std::to_string(file % kFolders));
    std::filesystem::create_directories(below);
    std::ofstream(below / ("Window " + std::to_string(file) + ".drg"));
  }
  return folder.string();
}

void setUp(benchmark::State& state) {
  const int files = static_cast<int>(state.range(0));
  const std::string folder = libraryOf(files);
  FileServices services(folder, folder);
  bench::BestTime best;
  for (auto _ : state) {
    FolderTree tree(services);
    tree.SetFilter("DRG");
    best.measure([&] {
      tree.InitializeTree(folder);
      SymbolTree shown(tree, nullptr);
      shown.show();
      QApplication::processEvents();
      return shown.isVisible();
    });
  }
  bench::report(state, files, best.seconds(), {});
}
BENCHMARK(setUp)->Arg(500)->Arg(5000)->Iterations(5)->Unit(benchmark::kMillisecond);

void search(benchmark::State& state) {
  const int files = static_cast<int>(state.range(0));
  const std::string folder = libraryOf(files);
  FileServices services(folder, folder);
  FolderTree tree(services);
  tree.SetFilter("DRG");
  tree.InitializeTree(folder);
  SymbolTree shown(tree, nullptr);
  shown.show();
  auto* words = shown.findChild<QLineEdit*>("symbolSearch");
  words->setText("w");  // reads the folders once
  bench::BestTime best;
  for (auto _ : state) {
    words->setText("win");
    best.measure([&] {
      words->setText("wind");
      return words->text().size();
    });
  }
  bench::report(state, files, best.seconds(), {});
}
BENCHMARK(search)->Arg(500)->Arg(5000)->Iterations(5)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
