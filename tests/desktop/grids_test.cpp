#include <QTabBar>
#include <QToolButton>
#include <regex>

#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

// Dialogs that are made of grids as a person meets them: rows removed by a click, layouts and names by a list.
class Grids : public DesktopSession {
 protected:
  static QTableWidget& grid(qsizetype index) { return *dialogShown()->findChildren<QTableWidget*>().at(index); }
  // After the event that brings us here, since what the click opens waits in an event loop of its own.
  static void clickCell(int row, int column) {
    QTimer::singleShot(0, [row, column] {
      QTableWidget& table = grid(1);
      table.scrollToItem(table.item(row, column));
      const QPoint at = table.visualItemRect(table.item(row, column)).center();
      QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    });
  }
  static std::string contentOf(const std::string& file) {
    std::ifstream in(file);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static QTableWidget& gridShown() {
    const auto grids = dialogShown()->findChildren<QTableWidget*>();
    return **std::ranges::find_if(grids, &QTableWidget::isVisible);
  }
};

TEST_F(Grids, AClickAsksBeforeARowGoesAndTheKeyboardDoesNot) {
  QStringList texts;
  const auto first = [&texts] { texts.append(grid(1).item(7, 0)->text()); };
  whenDialog([](DialogWindow& dialog) {
    EXPECT_EQ(grid(0).findChildren<QToolButton*>().size(), 2) << "a button for each drawing";
    dialog.findChild<QTabBar*>()->setCurrentIndex(1);
    grid(1).setCurrentCell(8, 1);
    grid(1).setCurrentCell(7, 1);
    clickCell(7, 0);
  });
  whenAsked(QMessageBox::No, "Delete this row?");
  whenDialog([&](DialogWindow&) { first(), clickCell(7, 0); });
  whenAsked(QMessageBox::Yes, "Delete this row?");
  whenDialog([&](DialogWindow& dialog) { first(), QTest::keyClick(&dialog, Qt::Key_Escape); });
  act([this] { window_->runCommand("SG_DiagramEditor"); });
  EXPECT_EQ(texts, (QStringList{"SIDES", "Metres"}));
  const QString recorded = window_->recorder().script();
  EXPECT_EQ(recorded.count("click \"Settings\" 8"), 2) << recorded.toStdString();
  EXPECT_LT(recorded.indexOf("reply no"), recorded.indexOf("reply yes")) << recorded.toStdString();
}

TEST_F(Grids, ARecordingCarriesEveryPageAndTemplate) {
  whenDialog([](DialogWindow& dialog) {
    dialog.findChild<QTabBar*>()->setCurrentIndex(2);
    press(dialog, "OK");
  });
  act([this] { window_->runCommand("SG_DiagramEditor"); });
  const std::string shipped = contentOf(root_.toStdString() + "/data/SG Diagram.ini");
  const std::string libraries = root_.toStdString() + "/other";
  std::filesystem::copy(BREVAN_DATA, libraries, std::filesystem::copy_options::recursive);
  const std::regex shown("Metres|Title(?=\\.drg)|21(?=,7,Arial)");
  std::ofstream(libraries + "/SG Diagram.ini") << std::regex_replace(shipped, shown, "7");
  replayed("", "", libraries);
  EXPECT_EQ(contentOf(root_.toStdString() + "/out1/SG Diagram.ini"), shipped);
}

TEST_F(Grids, FollowTheEntryThatIsChosenAndNotANameThatIsTyped) {
  whenDialog([this](DialogWindow& dialog) {
    auto* walls = dialog.findChildren<QComboBox*>().front();
    EXPECT_EQ(gridShown().rowCount(), 6);
    const QTableWidgetItem& pen = *gridShown().item(0, 0);
    EXPECT_EQ(pen.background().color(), QColor(QRgb(window_->host().window().gsGetPenColor(pen.text().toInt()))));
    walls->setCurrentIndex(walls->findText("Brick 110"));
    emit walls->activated(walls->currentIndex());
    EXPECT_EQ(gridShown().rowCount(), 4);
    walls->lineEdit()->selectAll();
    QTest::keyClicks(walls->lineEdit(), "Block cavity 300 of clay");  // through the name of another type
    EXPECT_EQ(walls->currentText(), "Block cavity 300 of clay");
    EXPECT_EQ(gridShown().rowCount(), 4);
    press(dialog, "OK");
  });
  act([this] { type("ArchSetWalls"); });
  const std::string renamed =
      TINIFile(root_.toStdString() + "/data/ArchSpecs.ini").ReadString("WALL_TYPES", "Wall6", "");
  EXPECT_TRUE(renamed.starts_with("Block cavity 300 of clay,WALLS_INTERNAL,")) << renamed;
}

}  // namespace
