#include <QComboBox>
#include <QLineEdit>
#include <QTableWidget>

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
    std::ifstream file(folder_.path().toStdString() + "/data/ArchSpecs.ini");
    const std::string key = "Wall" + std::to_string(number) + "=";
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with(key)) { return line.substr(key.size()); }
    }
    return "";
  }
};

TEST_F(Architecture, AWallTypeIsEditedInItsGridAndDrawn) {
  const std::string before = record(1);
  whenDialog([&](DialogWindow& dialog) {
    QTableWidget& grid = gridShown(dialog);
    ASSERT_EQ(grid.rowCount(), 6);
    rightClick(grid, 0, 3);  // the foundation's visibility, which is free
    rightClick(grid, 1, 3);  // a face's, which is not
    EXPECT_EQ(grid.item(0, 3)->text(), "No");
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
  EXPECT_EQ(drawing().count(), 5U + 2 * 4U);
  std::string wanted = before;
  wanted.replace(wanted.find("13,21,2.50,1"), 12, "13,21,2.50,0");
  wanted.replace(wanted.find("8,1,2.50"), 8, "33,40,0.50");
  EXPECT_EQ(record(1), wanted);
  EXPECT_EQ(replayed(), json());
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
