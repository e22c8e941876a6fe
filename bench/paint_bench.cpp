#include <QImage>
#include <QPainter>
#include <QPen>
#include <random>

#include "bench/best_time.h"
#include "render/drawing_painter.h"
#include "render/render_session.h"

// Painting a drawing into a picture, against Qt drawing the same lines with one pen.
namespace {

using namespace brevan;

constexpr double kSide = 1000.0;

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

QImage blank() {
  QImage image(static_cast<int>(kSide), static_cast<int>(kSide), QImage::Format_RGB32);
  image.fill(Qt::white);
  return image;
}

size_t paintDrawing(const Drawing& drawing) {
  QImage image = blank();
  QPainter painter(&image);
  PaintOptions options;
  options.lineWidths = false;
  return paint(painter, drawing, Transform{1.0, 0.0, 0.0, 0.0, -1.0, kSide}, options);
}

int paintLines(const Drawing& drawing) {
  QImage image = blank();
  QPainter painter(&image);
  QPen pen(Qt::black, 1.0);
  pen.setCapStyle(Qt::RoundCap);
  painter.setPen(pen);
  drawing.forEach([&painter](PrimitiveId, const Primitive& primitive) {
    const Line& line = std::get<Line>(primitive.geometry);
    painter.drawLine(QPointF(line.a.x, kSide - line.a.y), QPointF(line.b.x, kSide - line.b.y));
  });
  return image.pixel(0, 0) == 0 ? 1 : 0;
}

void paintPrimitives(benchmark::State& state) {
  RenderSession::require();
  Drawing drawing;
  fill(drawing, state.range(0));
  bench::BestTime ours;
  bench::BestTime bare;
  for (auto _ : state) {
    ours.measure([&] { return paintDrawing(drawing); });
    bare.measure([&] { return paintLines(drawing); });
  }
  state.counters["nsALine"] = ours.seconds() * 1e9 / static_cast<double>(state.range(0));
  state.counters["ratio"] = ours.seconds() / bare.seconds();
}
BENCHMARK(paintPrimitives)->Arg(62'500)->Arg(250'000)->Arg(1'000'000)->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace
