#include <QCheckBox>
#include <QClipboard>
#include <QHeaderView>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QToolButton>
#include <QTreeWidget>

#include "desktop/recorder.h"
#include "fuzz/every_control.h"
#include "host/scripts/script_user.h"
#include "host/window/control_kinds.h"
#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

class EveryControlByHand : public DesktopSession {
 protected:
  template <class Widget>
  Widget& widget(const QString& text = {}) {
    for (Widget* found : dialogShown()->findChildren<Widget*>()) {
      if (text.isEmpty() || found->property("text").toString().remove('&') == text) { return *found; }
    }
    throw std::runtime_error("no such widget: " + text.toStdString());
  }
  void operate() {
    widget<QCheckBox>().click();
    widget<QRadioButton>("Right").click();
    QTest::keyClicks(&widget<QPlainTextEdit>(), "one");
    QTest::keyClick(&widget<QPlainTextEdit>(), Qt::Key_Return, Qt::ControlModifier);
    QTest::keyClicks(&widget<QPlainTextEdit>(), "two");
    const auto arrows = dialogShown()->findChildren<QToolButton*>();
    for (QToolButton* arrow : arrows) {
      if (arrow->arrowType() == Qt::UpArrow) { arrow->click(), arrow->click(); }
    }
    for (QComboBox* combo : dialogShown()->findChildren<QComboBox*>()) {
      combo->setFocus();
      if (combo->isEditable()) {
        QTest::keyClicks(combo->lineEdit(), "12.9");
      } else {
        QTest::keyClick(combo, Qt::Key_Down);
      }
    }
    auto& sizes = widget<QListWidget>();
    for (const int row : {0, 2}) {
      QTest::mouseClick(sizes.viewport(), Qt::LeftButton, Qt::ControlModifier,
                        sizes.visualItemRect(sizes.item(row)).center());
    }
    for (QTreeWidget* tree : dialogShown()->findChildren<QTreeWidget*>()) {
      if (tree->isHeaderHidden()) {
        tree->topLevelItem(0)->setExpanded(true);
        click(*tree, tree->visualItemRect(tree->topLevelItem(0)->child(1)).center());
      } else {
        click(*tree, tree->visualItemRect(tree->topLevelItem(1)).center());
        tree->header()->resizeSection(1, 77);
      }
    }
    auto& grid = widget<QTableWidget>();
    editCell(grid, 0, "Wall");
    grid.setCurrentCell(0, 0);
    QApplication::clipboard()->setText("Gable\t2.5\n");
    QTest::keyClick(&grid, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&grid, Qt::Key_Insert);
    grid.item(1, 4)->setCheckState(Qt::Checked);
    emit grid.customContextMenuRequested(grid.visualItemRect(grid.item(0, 5)).center());
    emit grid.cellDoubleClicked(1, 0);
    auto* import = widget<QMenuBar>().actions().front()->menu()->actions().front();
    EXPECT_EQ(import->text().remove('&'), "Import Data");
    import->trigger();
    QTest::keyClick(dialogShown(), Qt::Key_F1);
  }

 private:
  static void click(QAbstractItemView& view, QPoint at) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, at);
  }
  static void editCell(QTableWidget& grid, int column, const QString& text) {
    grid.setCurrentCell(1, column);
    QTest::keyClick(&grid, Qt::Key_F2);
    auto* editor = grid.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText(text);
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();  // the toolkit commits later
  }
};

std::vector<std::string> contents(EveryControl& every) {
  std::vector<std::string> texts;
  for (const dialog::Control& control : every.dialog.controls()) { texts.push_back(valueText(control.state)); }
  for (const auto& row : every.dialog.state<dialog::Grid>(every.grid).rows) {
    for (const dialog::Cell& cell : row) { texts.push_back(cell.text); }
  }
  texts.push_back(std::to_string(every.dialog.state<dialog::ColumnList>(every.rows).columns[1].width));
  return texts;
}

// What hands do changes the dialog, and what is recorded of it does the same in a script.
TEST_F(EveryControlByHand, IsOperatedAndRecorded) {
  EveryControl untouched;
  EveryControl byHand;
  const qsizetype before = window_->recorder().lines().size();
  whenDialog([this](DialogWindow&) { operate(); });
  whenDialog([](DialogWindow& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
  act([&] { EXPECT_TRUE(window_->host().mainFrame().RunDialog(byHand.dialog, nullptr)); });
  const QStringList recorded = window_->recorder().lines().mid(before);
  const auto found = contents(byHand);
  const auto was = contents(untouched);
  size_t changed = 0;
  for (size_t at = 0; at < found.size(); ++at) { changed += found[at] == was[at] ? 0 : 1; }
  EXPECT_GE(changed, 14U) << recorded.join('\n').toStdString();

  EveryControl byScript;
  const std::string text = recorded.join('\n').toStdString() + "\n";
  const Script script = readScript("recorded.scr", text);
  ScriptCursor cursor(script);
  ScriptUser user(cursor, nullptr);
  try {
    EXPECT_TRUE(user.runDialog(byScript.dialog));
  } catch (const std::exception& failure) { FAIL() << failure.what() << '\n' << text; }
  EXPECT_EQ(contents(byScript), found) << text;
  EXPECT_EQ(byScript.log.back(), byHand.log.back());
}

}  // namespace
