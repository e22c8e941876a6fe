#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>

#include "desktop/application.h"
#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

using Window = DesktopSession;

TEST_F(Window, ABoltIsPlacedByTheMouseAloneUndoneAndRedone) {
  const std::string empty = json();
  const auto clickOn = [](auto& menu, const QString& caption) {
    for (QAction* action : menu.actions()) {
      if (!action->text().remove('&').endsWith(caption)) { continue; }
      return QTest::mouseClick(&menu, Qt::LeftButton, Qt::NoModifier, menu.actionGeometry(action).center());
    }
    ADD_FAILURE() << "no entry " << caption.toStdString();
  };
  const auto menuShown = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
  Box about;
  about.add(Point{0, 0});
  about.add(Point{120, 120});
  window_->view().zoomTo(about);
  // On its own, since the command waits in an event loop of its own.
  when([&] { return menuShown() != nullptr; },
       [&] { QTimer::singleShot(0, menuShown(), [&] { clickOn(*menuShown(), "Hex Bolts..."); }); });
  whenDialog([](DialogWindow& dialog) { press(dialog, "OK"); });
  whenPrompted("Indicate the position of the Bolt", [this] { click({60, 60}); });
  when([&] { return menuShown() != nullptr; }, [&] { clickOn(*menuShown(), "No Rotation"); });
  whenPrompted("Indicate the position of the Bolt", [this] { QTest::mouseClick(&window_->view(), Qt::RightButton); });
  act([&] { clickOn(*window_->menuBar(), "Mechanical"); });
  EXPECT_GT(drawing().count(), 10U);
  const std::string placed = json();
  EXPECT_EQ(replayed(), placed);
  window_->undo();
  EXPECT_EQ(json(), empty);
  window_->redo();
  EXPECT_EQ(json(), placed);
  EXPECT_EQ(replayed(), placed);
}

TEST_F(Window, AnotherCommandEndsTheOneThatAsks) {
  whenPrompted("Indicate the start of the line", [this] { click(window_->view().toDrawing({200, 200})); });
  whenPrompted("Indicate the next point", [this] { window_->runTool("circle"); });
  whenPrompted("Indicate the circle's centre", [this] { keys("10,10"), key(Qt::Key_Return); });
  whenPrompted("Indicate a point on the circle", [this] { keys("@5<0"), key(Qt::Key_Return); });
  whenPrompted("Indicate the circle's centre", [this] { key(Qt::Key_Space); });
  act([this] { window_->runTool("line"); });
  ASSERT_EQ(drawing().count(), 1U);
  EXPECT_EQ(std::get<Arc>(drawing().find(1)->geometry), (Arc{{15, 10}, {10, 10}, {15, 10}}));
}

TEST_F(Window, ARefusedValueKeepsTheFocusAndSaysWhy) {
  QString refusal;
  QWidget* focus = nullptr;
  QLineEdit* length = nullptr;
  whenDialog([&](DialogWindow& dialog) {
    length = dialog.findChildren<QLineEdit*>().front();
    dialog.activateWindow();
    length->setFocus();
  });
  when([&] { return length->hasFocus(); },
       [&] {
         length->selectAll();
         QTest::keyClicks(length, "4O");
         QTest::keyClick(length, Qt::Key_Tab);
       });
  when([] { return dialogShown() != nullptr && !dialogShown()->refusalShown().isEmpty(); }, [] {});
  when([&] { return length->hasFocus(); }, [] {});
  whenDialog([&](DialogWindow& dialog) {
    refusal = dialog.refusalShown();
    focus = dialog.focusWidget();
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  act([this] { window_->runCommand("MechDrawBolts"); });
  EXPECT_TRUE(refusal.contains("4O")) << refusal.toStdString();
  EXPECT_EQ(focus, length);
}

// A pixel here and there may step aside, because a line is rounded to pixels from another corner; a twentieth of the
// ink is a strip or a line that is missing.
void expectSamePicture(const QImage& one, const QImage& other) {
  ASSERT_EQ(one.size(), other.size());
  int ink = 0;
  int differing = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      ink += other.pixel(x, y) == other.pixel(0, other.height() - 1) ? 0 : 1;
      differing += one.pixel(x, y) == other.pixel(x, y) ? 0 : 1;
    }
  }
  EXPECT_GT(ink, 1000);
  EXPECT_LT(40 * differing, ink);
}

TEST_F(Window, PanningShowsWhatAFullPaintingShows) {
  for (int n = 0; n < 200; ++n) { drawing().add({.geometry = Line{{n * 7.0, 0}, {n * 3.0, 800}}}); }
  DrawingView& view = window_->view();
  view.refresh();
  view.zoomBy(3.0);
  view.finishPainting();
  // At once: nothing is painted in between.
  const auto pan = [&view](QPointF from, QPointF to) {
    const auto send = [&view](QEvent::Type type, QPointF at, Qt::MouseButton button) {
      QMouseEvent event(type, at, at, button, Qt::MiddleButton, Qt::NoModifier);
      QApplication::sendEvent(&view, &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::MiddleButton);
    send(QEvent::MouseMove, to, Qt::NoButton);
    send(QEvent::MouseButtonRelease, to, Qt::MiddleButton);
  };
  pan({300, 300}, {410, 260});
  view.finishPainting();
  const QImage shifted = view.grab().toImage();
  view.refresh();
  view.finishPainting();
  expectSamePicture(shifted, view.grab().toImage());
  // A change that is still being painted must not come back with a pan.
  drawing().add({.geometry = Line{view.toDrawing({10, 10}), view.toDrawing({500, 400})}});
  view.refreshIfChanged();
  pan({300, 300}, {320, 310});
  view.finishPainting();
  const QImage after = view.grab().toImage();
  view.refresh();
  view.finishPainting();
  expectSamePicture(after, view.grab().toImage());
}

TEST(Prompt, PointsAreTypedAbsoluteRelativeAndPolar) {
  const Point from{100, 50};
  EXPECT_EQ(typedPoint("10,20", from), (Point{10, 20}));
  EXPECT_EQ(typedPoint(" @ 5 , -5 ", from), (Point{105, 45}));
  const Point polar = typedPoint("@10<90", from).value_or(Point{});
  EXPECT_NEAR(polar.x, 100.0, 1e-9);
  EXPECT_NEAR(polar.y, 60.0, 1e-9);
  for (const char* wrong : {"", "10", "1,2,3", "10.5;3", "a,b", "@<"}) {
    EXPECT_FALSE(typedPoint(wrong, from)) << wrong;
  }
}

TEST(Snap, TheBestPointWithinReachWins) {
  Drawing drawing;
  drawing.add({.geometry = Line{{0, 0}, {100, 0}}});
  drawing.add({.geometry = Line{{30, -10}, {30, 40}}});
  drawing.add({.layer = drawing.addLayer({"HIDDEN", false, false}), .geometry = Line{{70, -5}, {70, 5}}});
  const std::set<SnapKind> all = {SnapKind::kEnd,          SnapKind::kMiddle,        SnapKind::kCentre,
                                  SnapKind::kIntersection, SnapKind::kPerpendicular, SnapKind::kNearest};
  const auto at = [&](Point p, std::optional<Point> from = std::nullopt) { return snapAt(drawing, p, 2.0, all, from); };
  EXPECT_EQ(at({1, 1})->kind, SnapKind::kEnd);
  EXPECT_EQ(at({30.5, 0.5})->at, (Point{30, 0}));
  EXPECT_EQ(at({49, 1})->kind, SnapKind::kMiddle);
  EXPECT_EQ(at({70, 1})->at, (Point{70, 0}));
  EXPECT_EQ(at({70, 1})->kind, SnapKind::kNearest);
  EXPECT_EQ(at({81, 1}, Point{80, 60})->kind, SnapKind::kPerpendicular);
  EXPECT_FALSE(at({70, 3}));
  EXPECT_FALSE(snapAt(drawing, {1, 1}, 2.0, {SnapKind::kMiddle}, std::nullopt));
}

}  // namespace

int main(int argc, char** argv) {
  const QByteArray screen = qgetenv("BREVAN_TEST_SCREEN");  // a file that describes it
  qputenv("QT_QPA_PLATFORM", screen.isEmpty() ? "offscreen" : "offscreen:configfile=" + screen);
  Application application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
