// What a person waits for who zooms and pans in a drawing of many lines. All of it is in sight for the zooms, a fifth
// for pan and drag, which go about its middle: at the edge they would bring empty paper into sight, which costs
// nothing.
//   zoom all, zoom step    until the new picture is whole
//   pan whole              a step of a tenth of the window, until the strip that came into sight is whole. It costs
//   what
//                          lies in the tiles of that strip, so it grows with the lines; the window answers meanwhile
//   drag                   frames a second as painted while the middle button drags, a move at a time as fast as the
//                          event loop takes them: what was in sight is shifted, the strip follows as time allows
//   longest frame          of that drag, from one move to its frame
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>

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

template <class Work>
double median(const Work& work) {
  std::vector<double> milliseconds;
  for (int round = 0; round < 7; ++round) {
    QElapsedTimer clock;
    clock.start();
    work(round);
    milliseconds.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
  }
  std::sort(milliseconds.begin(), milliseconds.end());
  return milliseconds[milliseconds.size() / 2];
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
  double framesASecond = 0.0;
  double longest = 0.0;  // milliseconds
};

// Three seconds round a circle.
Drag drag(DrawingView& view) {
  constexpr double kSeconds = 3.0;
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
    result.longest = std::max(result.longest, static_cast<double>(frame.nsecsElapsed()) / 1e6);
  }
  result.framesASecond = counter.frames / (static_cast<double>(clock.nsecsElapsed()) / 1e9);
  send(view, QEvent::MouseButtonRelease, {500, 400}, Qt::MiddleButton, Qt::NoButton);
  view.removeEventFilter(&counter);
  return result;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  std::printf("%10s %13s %13s %13s %13s %17s\n", "lines", "zoom all ms", "zoom step ms", "pan whole ms",
              "drag frames/s", "longest frame ms");
  for (const int lines : {10'000, 100'000, 500'000, 1'000'000}) {
    SilentUser nobody;
    MacroVariables variables;
    DrawingWindow window("Drawing1", {nobody, variables, nullptr});
    fill(window.drawing(), lines);
    ViewStyle style;
    DrawingView view(window, style, nullptr);
    view.resize(1000, 800);
    view.show();
    QApplication::processEvents();
    view.finishPainting();
    const double all = median([&](int) { view.refresh(), view.finishPainting(); });
    const double zoomed = median([&](int round) { view.zoomBy(round % 2 == 0 ? 1.25 : 0.8), view.finishPainting(); });
    constexpr double kFifth = 2.66;  // the window is then inside the drawing by half its size all around
    view.zoomAll();
    view.zoomBy(kFifth);
    view.finishPainting();
    const double panned = median(
        [&](int round) { pan(view, round % 2 == 0 ? QPointF(100, 0) : QPointF(-100, 0)), view.finishPainting(); });
    const Drag dragged = drag(view);
    std::printf("%10d %13.1f %13.1f %13.1f %13.0f %17.1f\n", lines, all, zoomed, panned, dragged.framesASecond,
                dragged.longest);
  }
  return 0;
}
