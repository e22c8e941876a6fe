#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>
#include <QTreeWidget>

#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

class Architecture : public DesktopSession {
 protected:
  static QTableWidget& gridShown(DialogWindow& dialog) {
    for (QTableWidget* grid : dialog.findChildren<QTableWidget*>()) {
      if (grid->isVisible()) { return *grid; }
    }
    throw std::logic_error("no grid is shown");
  }
  static QPoint cellAt(QTableWidget& grid, int row, int column) {
    return grid.visualItemRect(grid.item(row, column)).center();
  }
  static void rightClick(QTableWidget& grid, int row, int column) {
    emit grid.customContextMenuRequested(cellAt(grid, row, column));
  }
  // Types into a cell as a person does: the mouse twice, the text, Enter.
  static void typeInto(QTableWidget& grid, int row, int column, const QString& text) {
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier, cellAt(grid, row, column));
    grid.editItem(grid.item(row, column));
    auto* editor = grid.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::qWait(1);  // the editor gives its text when the keys are done
  }
  [[nodiscard]] std::string record(int number) const {
    return TINIFile(root_.toStdString() + "/data/ArchSpecs.ini")
        .ReadString("WALL_TYPES", "Wall" + std::to_string(number), "");
  }
};

TEST_F(Architecture, AWallTypeIsEditedInItsGridAndDrawn) {
  whenDialog([&](DialogWindow& dialog) {
    QTableWidget& grid = gridShown(dialog);
    ASSERT_EQ(grid.rowCount(), 6);
    rightClick(grid, 1, 3);  // a face's visibility, which is not free
    EXPECT_EQ(grid.item(1, 3)->text(), "Yes");
    typeInto(grid, 2, 0, "33");
    EXPECT_EQ(grid.item(2, 0)->background().color(), QColor(QRgb(window_->host().window().gsGetPenColor(33))));
    typeInto(grid, 2, 1, "40");  // beyond those that the list shows
    typeInto(grid, 2, 2, "0,5");
    press(dialog, "OK");
  });
  whenPrompted("Indicate starting position", [this] { type("0,0"); });
  whenPrompted("Indicate the next point", [this] { type("0,3000"); });
  whenPrompted("Indicate the next point", [this] { key(Qt::Key_Space); });
  whenPrompted("Indicate starting position", [this] { key(Qt::Key_Space); });
  act([this] { type("ArchDrawWalls"); });
  int drawn = 0;
  drawing().forEach([&drawn](PrimitiveId, const Primitive& stroke) {
    drawn += stroke.pen == 33 && stroke.linetype == 40 && stroke.width == 0.5 ? 1 : 0;
  });
  EXPECT_GT(drawn, 0);
  EXPECT_EQ(replayed(), json());
}

TEST_F(Architecture, ASymbolIsPickedInTheDockHangsAtTheCursorAndIsTurnedOverByAKey) {
  whenDialog([](DialogWindow& dialog) { press(dialog, "OK"); });
  whenPrompted("Indicate starting position", [this] { type("0,0"); });
  whenPrompted("Indicate the next point", [this] { type("0,3000"); });
  whenPrompted("Indicate the next point", [this] { key(Qt::Key_Space); });
  whenPrompted("Indicate starting position", [this] { key(Qt::Key_Space); });
  act([this] { type("ArchDrawWalls"); });
  act([this] { type("ArchPlaceSym"); });
  auto* tree = window_->findChild<QWidget*>("symbolTree")->findChild<QTreeWidget*>();
  ASSERT_TRUE(tree->isVisible());
  window_->findChild<QLineEdit*>("symbolSearch")->setText("w900-270");
  ASSERT_EQ(tree->topLevelItemCount(), 1);
  const auto hanging = [this] {
    const auto& rubber = window_->host().window().cursor().rubber();
    return rubber ? std::get<Symbol>(rubber({3, 1500}).front()) : Symbol{};
  };
  const QString prompt = "Indicate the position of the symbol";
  whenPrompted(prompt, [&, this] {
    EXPECT_EQ(hanging(), (Symbol{"W900-270P", {0, 1500}, 1.0, 90.0, false}));
    QTest::keyClick(&window_->view(), Qt::Key_Tab);
  });
  whenPrompted(prompt, [&, this] {
    EXPECT_EQ(hanging().rotation, 270.0) << "on the other face";
    QTest::keyClick(&window_->view(), Qt::Key_Tab);
  });
  whenPrompted(prompt, [this] { key(Qt::Key_F); });
  whenPrompted(prompt, [&, this] {
    EXPECT_EQ(hanging(), (Symbol{"W900-270P", {0, 2400}, 1.0, 90.0, true}));
    type("3,1500");
  });
  whenPrompted(prompt, [this] { key(Qt::Key_Space); });
  const auto item = tree->visualItemRect(tree->topLevelItem(0)).center();
  act([&] { QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, item); });
  EXPECT_EQ(hanging(), Symbol{});
  EXPECT_EQ(replayed(), json());
  EXPECT_NE(json().find("W900-270P"), std::string::npos);
}

TEST_F(Architecture, TheLayoutFollowsTheTypeOfWall) {
  whenDialog([](DialogWindow& dialog) {
    auto* walls = dialog.findChildren<QComboBox*>().front();
    walls->setCurrentIndex(walls->findText("Brick 110"));
    emit walls->activated(walls->currentIndex());
    EXPECT_EQ(gridShown(dialog).rowCount(), 4);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  act([this] { type("ArchSetWalls"); });
}

TEST_F(Architecture, ANameIsTypedOverTheOldOne) {
  const std::string before = record(1);
  whenDialog([](DialogWindow& dialog) {
    auto* walls = dialog.findChildren<QComboBox*>().front();
    const int rows = gridShown(dialog).rowCount();
    walls->lineEdit()->selectAll();
    QTest::keyClicks(walls->lineEdit(), "Brick 110 both sides");  // through the name of another type
    EXPECT_EQ(walls->currentText(), "Brick 110 both sides");
    EXPECT_EQ(gridShown(dialog).rowCount(), rows);
    press(dialog, "OK");
  });
  act([this] { type("ArchSetWalls"); });
  EXPECT_EQ(record(1), "Brick 110 both sides" + before.substr(before.find(',')));
}

TEST_F(Architecture, BuildingStandardsOpenFromTheSetup) {
  whenDialog([](DialogWindow& dialog) { QTimer::singleShot(0, &dialog, [&dialog] { press(dialog, "Set"); }); });
  when([] { return dialogShown() != nullptr && dialogShown()->windowTitle() == "Building Standards Setup"; },
       [] { QTest::keyClick(dialogShown(), Qt::Key_Escape); });
  when([] { return dialogShown() != nullptr && dialogShown()->windowTitle() == "Architectural Setup"; },
       [] { QTest::keyClick(dialogShown(), Qt::Key_Escape); });
  act([this] { type("DisplayArchSetup"); });
}

}  // namespace
