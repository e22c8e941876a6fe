#include <QAbstractItemView>
#include <QCompleter>
#include <QMouseEvent>
#include <QProgressBar>
#include <QToolBar>
#include <QWheelEvent>

#include "desktop/panels.h"
#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

// Moving about the drawing, selecting, layers and looks: what a hand does between commands.
class Hand : public DesktopSession {
 protected:
  DrawingView& view() { return window_->view(); }
  void show(Point low, Point high) {
    Box box;
    box.add(low);
    box.add(high);
    view().zoomTo(box);
  }
  // As the window system gives them: an exclamation mark is Escape.
  static void keysTo(QWindow& window, const QString& text) {
    for (const QChar letter : text) {
      if (letter == '\n' || letter == '!') {
        QTest::keyClick(&window, letter == '!' ? Qt::Key_Escape : Qt::Key_Return);
      } else {
        QTest::keyClick(&window, letter.toLatin1());
      }
    }
  }
  bool inkAt(Point at) {
    view().finishPainting();
    const QImage image = view().grab().toImage();
    const QPoint middle = view().toDevice(at).toPoint();
    const QRgb ground = image.pixel(0, 0);
    int ink = 0;
    for (int x = -3; x <= 3; ++x) {
      for (int y = -3; y <= 3; ++y) { ink += image.pixel(middle + QPoint(x, y)) == ground ? 0 : 1; }
    }
    return ink > 0;
  }
  double pixelsAUnit() { return view().toDevice({1, 0}).x() - view().toDevice({0, 0}).x(); }
  void mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QMouseEvent event(type, at, view().mapToGlobal(at), button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, keys);
    QApplication::sendEvent(&view(), &event);
  }
  void drag(Point from, Point to) {
    mouse(QEvent::MouseButtonPress, view().toDevice(from), Qt::LeftButton);
    mouse(QEvent::MouseMove, view().toDevice(to), Qt::LeftButton);
    view().grab();  // the band on the way is painted
    mouse(QEvent::MouseButtonRelease, view().toDevice(to), Qt::LeftButton);
  }
  void clickWith(Qt::KeyboardModifiers keys, Point at) {
    QTest::mouseClick(&view(), Qt::LeftButton, keys, view().toDevice(at).toPoint());
  }
  PrimitiveId line(Point from, Point to, int layer = 0) {
    return drawing().add({.layer = layer, .geometry = Line{from, to}});
  }
  std::set<PrimitiveId> selected() {
    const auto& ids = drawing().selection();
    return {ids.begin(), ids.end()};
  }
};

void expectNear(Point a, Point b, double reach) {
  EXPECT_NEAR(a.x, b.x, reach);
  EXPECT_NEAR(a.y, b.y, reach);
}

// What the next click would do is painted, where it would do it.
TEST_F(Hand, WhatAToolWouldDrawFollowsTheMouse) {
  show({-100, -100}, {200, 200});
  struct Row {
    const char* tool;
    std::vector<Point> clicks;
    Point mouse;  // asked for the last point
    Point shown;
  };
  const Row rows[] = {
      {"move", {{0, 0}}, {60, 80}, {85, 80}},
      {"copy", {{0, 0}}, {60, 80}, {85, 80}},
      {"rotate", {{0, 0}, {50, 0}}, {0, -80}, {0, -25}},
      {"mirror", {{-50, 50}}, {150, 50}, {25, 100}},
      {"line", {{-50, -50}}, {150, -50}, {70, -50}},
      {"rectangle", {{-50, -50}}, {150, 150}, {150, 20}},
      {"circle", {{80, 80}}, {110, 80}, {80, 110}},
      {"arc", {{-60, 60}, {-30, 90}}, {0, 60}, {-30 + 30 * 0.6, 60 + 30 * 0.8}},
  };
  for (const Row& row : rows) {
    const PrimitiveId drawn = line({0, 0}, {50, 0});
    window_->runner().run("Shown", [] {});
    click({40, 0});
    EXPECT_EQ(selected(), (std::set{drawn}));
    EXPECT_FALSE(inkAt(row.shown)) << row.tool;
    for (const Point at : row.clicks) {
      whenPrompted("Indicate", [this, at] { type(QString("%1,%2").arg(at.x).arg(at.y)); });
    }
    const size_t clicked = row.clicks.size();
    when([this, clicked] { return window_->recorder().script().count("point") >= static_cast<int>(clicked); }, [] {});
    whenPrompted("Indicate", [&] {
      mouse(QEvent::MouseMove, view().toDevice(row.mouse), Qt::NoButton);
      EXPECT_TRUE(inkAt(row.shown)) << row.tool;
      key(Qt::Key_Escape);
    });
    act([&] { type(row.tool); });
    EXPECT_FALSE(inkAt(row.shown)) << row.tool << " is cancelled";
    drawing().remove(drawn);
  }
}

// A symbol, with the symbols in it, shows where it would come, unless it is so large that the mouse would wait.
TEST_F(Hand, SymbolsThatMoveFollowTheMouse) {
  show({-100, -100}, {200, 200});
  const auto bar = [](double length) { return Primitive{.geometry = Line{{0, 0}, {length, 0}}}; };
  drawing().addSymbol({"INNER", {bar(40)}});
  drawing().addSymbol({"OUTER", {{.geometry = Symbol{"INNER", {0, 10}}}, bar(40)}});
  drawing().addSymbol({"LARGE", std::vector<Primitive>(6000, bar(40))});
  const struct {
    const char* name;
    std::vector<Point> shown;
    bool shows;
  } rows[] = {{"OUTER", {{70, 60}, {70, 70}}, true}, {"LARGE", {{70, 60}}, false}};
  for (const auto& row : rows) {
    const PrimitiveId placed = drawing().add({.geometry = Symbol{row.name, {0, 0}}});
    drawing().select(placed);
    whenPrompted("Indicate the point to move from", [this] { type("0,0"); });
    whenPrompted("Indicate the point to move to", [&] {
      mouse(QEvent::MouseMove, view().toDevice({50, 60}), Qt::NoButton);
      for (const Point at : row.shown) { EXPECT_EQ(inkAt(at), row.shows) << row.name; }
      key(Qt::Key_Escape);
    });
    act([&] { type("move"); });
    drawing().remove(placed);
  }
}

// Keys that come all at once, faster than the next question.
TEST_F(Hand, WhatIsTypedAheadIsNotLost) {
  whenPrompted("Indicate the start",
               [&] { keysTo(*window_->windowHandle(), "0,0\n90,0\n90,50\n!!circle\n20,20\n25,20\n!"); });
  when([this] { return drawing().count() == 3 && !window_->runner().busy(); }, [] {});
  act([this] { type("line"); });
  EXPECT_EQ(drawing().count(), 3U);
  EXPECT_EQ(std::get<Arc>(drawing().find(drawing().lastId())->geometry), (Arc{{25, 20}, {20, 20}, {25, 20}}));
  EXPECT_TRUE(edit().text().isEmpty());
}

// The list of completions has the keyboard until the window system hears that it has closed.
TEST_F(Hand, WhatReachesAClosedListIsNotLost) {
  keys("line");
  const QWidget* list = edit().completer()->popup();
  ASSERT_TRUE(list->isVisible());
  QWindow* window = list->windowHandle();
  whenPrompted("Indicate the start", [this, list, window] {
    ASSERT_FALSE(list->isVisible());
    keysTo(*window, "0,0\n9,9\n!");
  });
  when([this] { return !window_->runner().busy(); }, [] {});
  act([this] { key(Qt::Key_Return); });
  ASSERT_EQ(drawing().count(), 1U);
  EXPECT_EQ(std::get<Line>(drawing().find(1)->geometry), (Line{{0, 0}, {9, 9}}));
}

// The list closes before the press of the key that chose in it has gone through all that looks at keys.
TEST_F(Hand, EnterInAnOpenListChoosesAndDoesNoMore) {
  int entry = -1;
  whenDialog([&entry](DialogWindow& dialog) {
    auto* list = dialog.findChild<QComboBox*>();
    entry = list->currentIndex();
    list->setFocus();
    list->showPopup();
    QWindow& popup = *list->view()->window()->windowHandle();
    QTest::keyClick(&popup, Qt::Key_Down);
    QTest::keyClick(&popup, Qt::Key_Return);
    ASSERT_FALSE(list->view()->window()->isVisible());
    entry = list->currentIndex() - entry;
  });
  when([] { return true; }, [] { ASSERT_NE(dialogShown(), nullptr) << "Enter went on to the dialog's OK"; });
  when([] { return dialogShown() != nullptr; }, [] { keysTo(*dialogShown()->windowHandle(), "\n"); });
  whenPrompted("", [this] { key(Qt::Key_Escape); });
  act([this] { window_->runCommand("MechDrawBolts"); });
  EXPECT_EQ(entry, 1);
}

TEST_F(Hand, EscapeStopsALongComputation) {
  constexpr int kSteps = 2000;
  int done = 0;
  QTimer::singleShot(0, [this] { QTest::keyClick(&view(), Qt::Key_Escape); });
  act([&] {
    window_->runner().run("Long", [&] {
      for (; done < kSteps; ++done) {
        QTest::qSleep(1);
        user().showProgress(done, kSteps, "Long");
      }
    });
  });
  EXPECT_LT(done, kSteps);
  EXPECT_FALSE(window_->findChild<QProgressBar*>()->isVisible());
}

// Settings of the view change what is seen, at once.
TEST_F(Hand, TheViewsSettingsAreSeen) {
  drawing().add({.width = 20.0, .geometry = Line{{0, 0}, {100, 70}}});
  view().zoomAll();
  const auto seen = [this] {
    view().finishPainting();
    return view().grab().toImage();
  };
  QImage before = seen();
  for (const char* setting : {"Line Widths", "Grid", "Dark Ground"}) {
    action(setting).trigger();
    const QImage now = seen();
    EXPECT_NE(now, before) << setting;
    before = now;
  }
  EXPECT_LT(qGray(before.pixel(3, 3)), 100) << "a dark ground";
  whenAsked(QMessageBox::Discard);
  act([this] { window_->close(); });
  start();
  EXPECT_TRUE(action("Grid").isChecked()) << "kept for the next session";
}

TEST_F(Hand, TheWheelKeepsWhatIsUnderTheMouse) {
  show({0, 0}, {100, 100});
  const QPointF at(view().width() / 4.0, view().height() / 5.0);
  const Point under = view().toDrawing(at);
  const double before = pixelsAUnit();
  for (const int turn : {120, 120, -360}) {
    QWheelEvent event(at, view().mapToGlobal(at), {}, {0, turn}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&view(), &event);
    expectNear(view().toDrawing(at), under, 1e-6);
  }
  EXPECT_LT(pixelsAUnit(), before);
  const Point middle = view().toDrawing({view().width() / 2.0, view().height() / 2.0});
  action("Zoom In").trigger();
  action("Zoom In").trigger();
  action("Zoom Out").trigger();
  expectNear(view().toDrawing({view().width() / 2.0, view().height() / 2.0}), middle, 1e-6);
}

TEST_F(Hand, AWindowIsZoomedToAndAllIsShownAgain) {
  line({0, 0}, {1000, 800});
  view().zoomAll();
  const double all = pixelsAUnit();
  action("Zoom Window").trigger();
  QTest::keyClick(&view(), Qt::Key_Escape);
  drag({100, 100}, {300, 200});
  EXPECT_DOUBLE_EQ(pixelsAUnit(), all) << "Escape left the zoom";
  action("Zoom Window").trigger();
  drag({100, 100}, {300, 200});
  EXPECT_GT(pixelsAUnit(), 3.0 * all);
  expectNear(view().toDrawing({view().width() / 2.0, view().height() / 2.0}), {200, 150}, 1.0);
  for (const Point corner : {Point{100, 100}, Point{300, 200}}) {
    EXPECT_TRUE(view().rect().contains(view().toDevice(corner).toPoint()));
  }
  mouse(QEvent::MouseButtonDblClick, {20, 20}, Qt::MiddleButton);
  EXPECT_DOUBLE_EQ(pixelsAUnit(), all);
}

TEST_F(Hand, ClicksAndWindowsSelect) {
  const PrimitiveId low = line({0, 0}, {100, 0});
  const PrimitiveId high = line({0, 50}, {100, 50});
  const PrimitiveId hidden = line({0, 25}, {100, 25}, drawing().addLayer({"HIDDEN", false, false}));
  const PrimitiveId locked = line({0, 75}, {100, 75}, drawing().addLayer({"LOCKED", true, true}));
  show({-20, -20}, {120, 120});
  click({40, 0});
  EXPECT_EQ(selected(), (std::set{low}));
  clickWith(Qt::ControlModifier, {40, 50});
  EXPECT_EQ(selected(), (std::set{low, high}));
  clickWith(Qt::ControlModifier, {40, 0});
  EXPECT_EQ(selected(), (std::set{high}));
  click({40, 25});
  EXPECT_TRUE(selected().empty()) << "a hidden line is not met";
  drag({-10, -10}, {110, 60});
  EXPECT_EQ(selected(), (std::set{low, high}));
  drag({10, -10}, {110, 60});
  EXPECT_TRUE(selected().empty()) << "what is half inside stays out";
  action("Select All").trigger();
  EXPECT_EQ(selected(), (std::set{low, high}));
  action("Delete").trigger();
  EXPECT_EQ(drawing().count(), 2U);
  EXPECT_TRUE(drawing().find(hidden) != nullptr && drawing().find(locked) != nullptr);
}

TEST_F(Hand, WindowsSelectWholePartsAndDeletedOnesLeaveTheGroups) {
  const GroupId group = drawing().addGroup("BOLTS", "B7");
  const PrimitiveId shank = drawing().add({.group = group, .geometry = Line{{0, 0}, {100, 0}}});
  const PrimitiveId axis = drawing().add({.group = group, .geometry = Line{{0, 50}, {100, 50}}});
  const PrimitiveId other = line({0, 100}, {100, 100});
  show({-20, -20}, {120, 120});
  window_->runner().run("Shown", [] {});
  drag({-10, -10}, {110, 40});
  EXPECT_TRUE(selected().empty()) << "holds half of the part";
  drag({-10, -10}, {110, 60});
  EXPECT_EQ(selected(), (std::set{shank, axis}));
  drag({40, 95}, {60, 105});
  EXPECT_TRUE(selected().empty());
  drag({60, 105}, {40, 45});
  EXPECT_EQ(selected(), (std::set{shank, axis, other})) << "from right to left";
  drag({60, 20}, {40, -20});
  EXPECT_EQ(selected(), (std::set{shank, axis}));
  auto* panel = window_->findChild<GroupsPanel*>("groupsPanel");
  EXPECT_EQ(panel->topLevelItemCount(), 1);
  action("Delete").trigger();
  EXPECT_EQ(drawing().count(), 1U);
  EXPECT_EQ(panel->topLevelItemCount(), 0);
  window_->undo();
  EXPECT_EQ(panel->topLevelItemCount(), 1);
}

TEST_F(Hand, AGroupIsFoundByItsName) {
  const GroupId group = drawing().addGroup("BOLTS", "B7");
  const PrimitiveId far = drawing().add({.group = group, .geometry = Line{{5000, 5000}, {5010, 5000}}});
  line({0, 0}, {100, 0});
  show({0, 0}, {100, 100});
  window_->runner().run("Shown", [] {});
  auto* panel = window_->findChild<GroupsPanel*>("groupsPanel");
  ASSERT_EQ(panel->topLevelItemCount(), 1);
  EXPECT_EQ(panel->topLevelItem(0)->text(0), "BOLTS  (1)");
  emit panel->itemClicked(panel->topLevelItem(0)->child(0), 0);
  EXPECT_EQ(selected(), (std::set{far}));
  EXPECT_TRUE(view().rect().contains(view().toDevice({5005, 5000}).toPoint()));
}

TEST_F(Hand, LayersAndLooksAreChosenUndoneAndRecorded) {
  auto* choice = window_->findChild<QToolBar*>("styleBar")->findChild<QComboBox*>();
  choice->setFocus();
  choice->lineEdit()->selectAll();
  keysTo(*window_->windowHandle(), "Walls \"outer\"\n");
  EXPECT_EQ(drawing().layer(drawing().currentLayer())->name, "Walls \"outer\"");
  const auto boxes = window_->findChild<QToolBar*>("styleBar")->findChildren<QComboBox*>();
  ASSERT_EQ(boxes.size(), 3);
  boxes[1]->setCurrentIndex(4);
  emit boxes[1]->activated(4);
  boxes[2]->setCurrentIndex(2);
  emit boxes[2]->activated(2);
  whenPrompted("Indicate the start", [this] { type("10,10"); });
  whenPrompted("Indicate the next", [this] { type("@50<90"); });
  whenPrompted("Indicate", [this] { key(Qt::Key_Escape); });
  act([this] { type("line"); });
  ASSERT_EQ(drawing().count(), 1U);
  drawing().forEach([this](PrimitiveId, const Primitive& primitive) {
    EXPECT_EQ(drawing().layer(primitive.layer)->name, "Walls \"outer\"");
    EXPECT_EQ(primitive.pen, 5);
    EXPECT_EQ(primitive.linetype, 3);
  });
  auto* panel = window_->findChild<LayersPanel*>("layersPanel");
  ASSERT_EQ(panel->rowCount(), 2);
  EXPECT_TRUE(panel->item(1, 0)->font().bold());
  panel->item(1, 1)->setCheckState(Qt::Unchecked);
  panel->item(0, 2)->setCheckState(Qt::Checked);
  EXPECT_FALSE(drawing().layer(1)->visible);
  EXPECT_TRUE(drawing().layer(0)->locked);
  const std::string changed = json();
  EXPECT_EQ(replayed(), changed);
  window_->undo();
  window_->undo();
  EXPECT_TRUE(drawing().layer(1)->visible && !drawing().layer(0)->locked);
  EXPECT_EQ(panel->item(1, 1)->checkState(), Qt::Checked);
  emit panel->cellDoubleClicked(0, 0);
  EXPECT_EQ(drawing().currentLayer(), 0);
  EXPECT_EQ(replayed(), json());
}

TEST_F(Hand, TheDrawingsSettingsAreChangedInADialog) {
  whenDialog([](DialogWindow& dialog) {
    const auto edits = dialog.findChildren<QLineEdit*>();
    edits[0]->selectAll();
    QTest::keyClicks(edits[0], "2,5");
    QTest::keyClick(edits[0], Qt::Key_Tab);
    press(dialog, "OK");
  });
  act([this] { action("Drawing Settings...").trigger(); });
  EXPECT_EQ(drawing().parameters().scale(), 2.5);
  EXPECT_EQ(replayed(), json());
  window_->undo();
  EXPECT_NE(drawing().parameters().scale(), 2.5);
}

}  // namespace
