// What a person waits for who zooms and pans in a drawing of many lines: zoom all, a zoom step about the
// middle, a pan step of a tenth of the window. Each is painted to the end.
#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <algorithm>
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

void pan(DrawingView& view, QPointF by) {
  const auto send = [&](QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons) {
    QMouseEvent event(type, at, at, button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
  };
  const QPointF middle(500, 400);
  send(QEvent::MouseButtonPress, middle, Qt::MiddleButton, Qt::MiddleButton);
  send(QEvent::MouseMove, middle + by, Qt::NoButton, Qt::MiddleButton);
  send(QEvent::MouseButtonRelease, middle + by, Qt::MiddleButton, Qt::NoButton);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  std::printf("%10s %14s %14s %14s %16s\n", "lines", "zoom all ms", "zoom step ms", "pan step ms", "first answer ms");
  for (const int lines : {10'000, 100'000, 1'000'000}) {
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
    const double panned = median(
        [&](int round) { pan(view, round % 2 == 0 ? QPointF(100, 0) : QPointF(-100, 0)), view.finishPainting(); });
    // How long the window is deaf after a pan: one slice of painting.
    const double answer = median([&](int round) {
      pan(view, round % 2 == 0 ? QPointF(100, 0) : QPointF(-100, 0)), QApplication::processEvents();
    });
    view.finishPainting();
    const double zoomed = median([&](int round) { view.zoomBy(round % 2 == 0 ? 1.25 : 0.8), view.finishPainting(); });
    std::printf("%10d %14.1f %14.1f %14.1f %16.1f\n", lines, all, zoomed, panned, answer);
  }
  return 0;
}
