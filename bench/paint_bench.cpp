#include <random>

#include "bench/lines_by_qt.h"
#include "bench/report.h"
#include "render/drawing_painter.h"
#include "render/render_session.h"

// Painting a drawing into a picture, against Qt drawing the same lines with one pen.
namespace {

using namespace brevan;

constexpr double kSide = 1000.0;
constexpr QSize kPicture(1000, 1000);

void fill(Drawing& drawing, int64_t count) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> along(0.0, kSide);
  std::uniform_real_distribution<double> off(-5.0, 5.0);
  drawing.beginLoading();
  for (PrimitiveId id = 1; id <= count; ++id) {
    const Point a = {along(random), along(random)};
    drawing.load(id, {.geometry = Line{a, a + Point{off(random), off(random)}}});
  }
  drawing.endLoading();
}

size_t paintDrawing(const Drawing& drawing) {
  QImage image(kPicture, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  PaintOptions options;
  options.lineWidths = false;
  return paint(painter, drawing, Transform{1.0, 0.0, 0.0, 0.0, -1.0, kSide}, options);
}

void paintPrimitives(benchmark::State& state) {
  requirePainting();
  Drawing drawing;
  fill(drawing, state.range(0));
  bench::BestTime ours;
  bench::BestTime bare;
  for (auto _ : state) {
    ours.measure([&] { return paintDrawing(drawing); });
    bare.measure([&] { return bench::linesByQt(drawing, 1.0, kPicture); });
  }
  bench::report(state, static_cast<double>(state.range(0)), ours.seconds(), {{"Qt alone", bare.seconds()}});
}
BENCHMARK(paintPrimitives)->Arg(62'500)->Arg(250'000)->Arg(1'000'000)->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace
