// What a person waits for who zooms and pans in a drawing of many lines. All of it is in sight for the zooms, a fifth
// for pan and drag, which go about its middle: at the edge they would bring empty paper into sight, which costs
// nothing.
//   zoomAll, zoomStep   until the new picture is whole, against the painter drawing the same lines at once
//   panStep             a step of a tenth of the window, until the strip that came into sight is whole. It costs what
//                       lies in the tiles of that strip, so it grows with the lines; the window answers meanwhile
//   dragFrame           a frame on average while the middle button drags, a move at a time as fast as the event loop
//                       takes them: what was in sight is shifted, the strip follows as time allows
//   longestDragFrame    of that drag, from one move to its frame
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <cmath>
#include <memory>
#include <random>

#include "bench/lines_by_qt.h"
#include "bench/report.h"
#include "desktop/drawing_view.h"
#include "host/macros/variables.h"
#include "host/window/silent_user.h"

namespace {

using namespace brevan;

// Short lines all over a square, as in a township plan.
void fill(Drawing& drawing, int lines) {
  std::mt19937 engine(1);
  std::uniform_real_distribution<double> place(0.0, 10'000.0);
  std::uniform_real_distribution<double> reach(-30.0, 30.0);
  for (int n = 0; n < lines; ++n) {
    const Point from{place(engine), place(engine)};
    drawing.add({.geometry = Line{from, from + Point{reach(engine), reach(engine)}}});
  }
}

void send(DrawingView& view, QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons) {
  QMouseEvent event(type, at, at, button, buttons, Qt::NoModifier);
  QApplication::sendEvent(&view, &event);
}

void pan(DrawingView& view, QPointF by) {
  const QPointF middle(500, 400);
  send(view, QEvent::MouseButtonPress, middle, Qt::MiddleButton, Qt::MiddleButton);
  send(view, QEvent::MouseMove, middle + by, Qt::NoButton, Qt::MiddleButton);
  send(view, QEvent::MouseButtonRelease, middle + by, Qt::MiddleButton, Qt::NoButton);
}

class FrameCounter : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    frames += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int frames = 0;
};

struct Drag {
  double frame = 0.0;  // seconds, on average
  double longest = 0.0;
};

// Two seconds round a circle.
Drag drag(DrawingView& view) {
  constexpr double kSeconds = 2.0;
  constexpr double kTurn = 0.03;  // radians a move: about 9 pixels
  constexpr double kRadius = 150.0;
  FrameCounter counter;
  view.installEventFilter(&counter);
  QElapsedTimer clock;
  clock.start();
  Drag result;
  double angle = 0.0;
  send(view, QEvent::MouseButtonPress, {500 + kRadius, 400}, Qt::MiddleButton, Qt::MiddleButton);
  while (static_cast<double>(clock.elapsed()) < 1000.0 * kSeconds) {
    angle += kTurn;
    const int before = counter.frames;
    QElapsedTimer frame;
    frame.start();
    send(view, QEvent::MouseMove, {500 + kRadius * std::cos(angle), 400 + kRadius * std::sin(angle)}, Qt::NoButton,
         Qt::MiddleButton);
    while (counter.frames == before) { QApplication::processEvents(QEventLoop::WaitForMoreEvents); }
    result.longest = std::max(result.longest, static_cast<double>(frame.nsecsElapsed()) / 1e9);
  }
  result.frame = static_cast<double>(clock.nsecsElapsed()) / 1e9 / counter.frames;
  send(view, QEvent::MouseButtonRelease, {500, 400}, Qt::MiddleButton, Qt::NoButton);
  view.removeEventFilter(&counter);
  return result;
}

// A view of a drawing of so many lines, as shown; making one takes longer than what is measured on it.
class Shown {
 public:
  explicit Shown(int lines) : lines_(lines) {
    fill(window_.drawing(), lines);
    view_.resize(1000, 800);
    view_.show();
    QApplication::processEvents();
    view_.finishPainting();
  }
  [[nodiscard]] int lines() const { return lines_; }
  DrawingView& view() { return view_; }
  // The window is then inside the drawing by half its size all around.
  void showFifth() {
    constexpr double kFifth = 2.66;
    view_.zoomAll();
    view_.zoomBy(kFifth);
    view_.finishPainting();
  }

 private:
  int lines_;
  SilentUser nobody_;
  MacroVariables variables_;
  DrawingWindow window_{"Drawing1", {nobody_, variables_, nullptr}};
  ViewStyle style_;
  DrawingView view_{window_, style_, nullptr};
};

std::unique_ptr<Shown>& kept() {
  static std::unique_ptr<Shown> shown;
  return shown;
}
Shown& shown(const benchmark::State& state) {
  const int lines = static_cast<int>(state.range(0));
  if (!kept() || kept()->lines() != lines) { kept() = std::make_unique<Shown>(lines); }
  return *kept();
}

void zoomAll(benchmark::State& state) {
  DrawingView& view = shown(state).view();
  view.zoomAll();
  view.finishPainting();
  bench::BestTime ours;
  bench::BestTime bare;
  for (auto _ : state) {
    ours.measure([&] {
      view.refresh();
      view.finishPainting();
      return view.width();
    });
    const double pixelsAUnit = view.toDevice({1.0, 0.0}).x() - view.toDevice({0.0, 0.0}).x();
    bare.measure([&] { return bench::linesByQt(view.window().drawing(), pixelsAUnit, view.size()); });
  }
  bench::report(state, static_cast<double>(state.range(0)), ours.seconds(), {{"Qt alone", bare.seconds()}});
}

void zoomStep(benchmark::State& state) {
  DrawingView& view = shown(state).view();
  view.zoomAll();
  view.finishPainting();
  bench::BestTime ours;
  bool in = false;
  for (auto _ : state) {
    in = !in;
    ours.measure([&] {
      view.zoomBy(in ? 1.25 : 0.8);
      view.finishPainting();
      return view.width();
    });
  }
  bench::report(state, static_cast<double>(state.range(0)), ours.seconds(), {});
}

void panStep(benchmark::State& state) {
  shown(state).showFifth();
  DrawingView& view = shown(state).view();
  bench::BestTime ours;
  double step = 100.0;
  for (auto _ : state) {
    ours.measure([&] {
      pan(view, {step, 0.0});
      view.finishPainting();
      return view.width();
    });
    step = -step;
  }
  bench::report(state, static_cast<double>(state.range(0)), ours.seconds(), {});
}

void dragFrames(benchmark::State& state, double Drag::*wanted) {
  shown(state).showFifth();
  Drag dragged;
  for (auto _ : state) { dragged = drag(shown(state).view()); }
  bench::report(state, static_cast<double>(state.range(0)), dragged.*wanted, {});
}
void dragFrame(benchmark::State& state) { dragFrames(state, &Drag::frame); }
void longestDragFrame(benchmark::State& state) { dragFrames(state, &Drag::longest); }

struct Row {
  const char* name;
  void (*measure)(benchmark::State&);
  int iterations;
};
constexpr Row kRows[] = {{"zoomAll", zoomAll, 3},
                         {"zoomStep", zoomStep, 4},
                         {"panStep", panStep, 6},
                         {"dragFrame", dragFrame, 1},
                         {"longestDragFrame", longestDragFrame, 1}};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  for (const int lines : {10'000, 100'000, 1'000'000}) {
    for (const Row& row : kRows) {
      benchmark::RegisterBenchmark(row.name, row.measure)->Arg(lines)->Iterations(row.iterations);
    }
  }
  benchmark::RunSpecifiedBenchmarks();
  kept().reset();  // before the application it is shown by
  return 0;
}
