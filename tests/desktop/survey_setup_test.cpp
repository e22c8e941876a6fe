#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTableWidget>
#include <QToolButton>
#include <regex>

#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

// The survey setup dialog as a person meets it: grids with pens, fonts, buttons, and rows removed by a click.
class SurveyWindow : public DesktopSession {
 protected:
  static QTableWidget& grid(size_t index) {
    return *dialogShown()->findChildren<QTableWidget*>().at(static_cast<qsizetype>(index));
  }
  // After the event that brings us here, since what the click opens waits in an event loop of its own.
  static void clickCell(int row, int column) {
    QTimer::singleShot(0, [row, column] {
      QTableWidget& table = grid(1);
      table.scrollToItem(table.item(row, column));
      const QPoint at = table.visualItemRect(table.item(row, column)).center();
      QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, at);
    });
  }
  void whenAsked(const QString& text, QMessageBox::StandardButton answer) {
    when(
        [text] {
          const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
          return box != nullptr && box->text() == text;
        },
        [answer] {
          auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
          QTimer::singleShot(0, box, [box, answer] { box->button(answer)->click(); });
        });
  }
};

TEST_F(SurveyWindow, AClickAsksBeforeARowGoesAndTheKeyboardDoesNot) {
  QStringList texts;
  const auto first = [&texts] { texts.append(grid(1).item(7, 0)->text()); };
  whenDialog([](DialogWindow& dialog) {
    EXPECT_EQ(grid(0).findChildren<QToolButton*>().size(), 2) << "a button for each drawing";
    dialog.findChild<QTabBar*>()->setCurrentIndex(1);
    grid(1).setCurrentCell(8, 1);
    grid(1).setCurrentCell(7, 1);
    clickCell(7, 0);
  });
  whenAsked("Delete this row?", QMessageBox::No);
  whenDialog([&](DialogWindow&) { first(), clickCell(7, 0); });
  whenAsked("Delete this row?", QMessageBox::Yes);
  whenDialog([&](DialogWindow& dialog) { first(), QTest::keyClick(&dialog, Qt::Key_Escape); });
  act([this] { window_->runCommand("SG_DiagramEditor"); });
  EXPECT_EQ(texts, (QStringList{"SIDES", "Metres"}));
  const QString recorded = window_->recorder().script();
  EXPECT_EQ(recorded.count("click \"Settings\" 8"), 2) << recorded.toStdString();
  EXPECT_LT(recorded.indexOf("reply no"), recorded.indexOf("reply yes")) << recorded.toStdString();
}

std::string contentOf(const std::string& file) {
  std::stringstream text;
  text << std::ifstream(file).rdbuf();
  return text.str();
}

TEST_F(SurveyWindow, ARecordingCarriesEveryPageAndTemplate) {
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

}  // namespace
