#include <QCheckBox>
#include <QMenu>
#include <QRadioButton>
#include <QTableWidget>
#include <random>
#include <regex>

#include "tests/desktop/desktop_session.h"

namespace {

using namespace brevan;

// Draws at random, and every recording replays to the same drawing, whatever settings and libraries the replay starts
// from.
class RandomSessions : public DesktopSession {
 protected:
  // As after a first start, but with the settings of the sessions before.
  void beginAnew() {
    window_.reset();
    std::filesystem::remove_all(root_.toStdString() + "/recovery");
    std::filesystem::remove_all(root_.toStdString() + "/data");
    start();
  }
  void run(const QString& command) {
    questions_ = 0;
    operated_ = nullptr;
    QTimer hands;
    // On its own, since a timer rests while what it began waits in an event loop.
    QObject::connect(&hands, &QTimer::timeout, [this] { QTimer::singleShot(0, window_.get(), [this] { answer(); }); });
    hands.start(5);
    QElapsedTimer clock;
    clock.start();
    window_->runTyped(command);
    constexpr int kPatience = 10'000;
    while (window_->runner().busy() && clock.elapsed() < kPatience) { QTest::qWait(5); }
    ASSERT_FALSE(window_->runner().busy()) << command.toStdString() << " does not end at " << prompt().toStdString();
  }
  // Of the mechanic and the architect, walls above all, whose dialog holds a table; none of those that show the symbol
  // library, of which a process has one.
  QString anyCommand() {
    if (below(3) == 0) { return "ArchDrawWalls"; }
    for (;;) {
      const auto commands = window_->host().module()->commands();
      const CommandRow& command = commands[static_cast<size_t>(below(static_cast<int>(commands.size())))];
      const std::string_view name = command.name;
      const bool browses = name == "ArchPlaceSym" || name == "DisplayArchSetup";
      if (command.family != CommandFamily::kSurvey && !browses) { return QString::fromLatin1(command.name); }
    }
  }
  // Selects some parts by clicks, and moves, copies or erases them.
  void changeSelected() {
    const auto items = drawing().onLayer(drawing().currentLayer());
    if (items.empty()) { return; }
    drawing().clearSelection();
    for (int clicks = 1 + below(3); clicks > 0; --clicks) {
      togglePart(drawing(), items[static_cast<size_t>(below(static_cast<int>(items.size())))]);
    }
    constexpr const char* kTools[] = {"move", "copy", "erase"};
    questions_ = 0;
    run(kTools[below(3)]);
  }
  // Those that ship, but for the pens and line types of the walls' layers.
  std::string otherLibraries() {
    std::string folder = root_.toStdString() + "/other";
    std::filesystem::copy(BREVAN_DATA, folder, std::filesystem::copy_options::recursive);
    const std::string file = folder + "/ArchSpecs.ini";
    std::stringstream text;
    text << std::ifstream(file).rdbuf();
    std::ofstream(file) << std::regex_replace(text.str(), std::regex(",13,21,2.50"), ",9,5,7.50");
    return folder;
  }
  int below(int most) { return std::uniform_int_distribution<int>(0, most - 1)(random_); }

  std::mt19937 random_{20261123};

 private:
  void answer() {
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const top = popup != nullptr ? popup : QApplication::activeModalWidget();
    if (top != nullptr && top == answered_) { return; }  // what it does waits in an event loop of its own
    QWidget* const outer = std::exchange(answered_, top);
    answerOne();
    answered_ = outer;
  }
  void answerOne() {
    if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
      return QTest::keyClick(menu, static_cast<Qt::Key>(Qt::Key_1 + below(static_cast<int>(menu->actions().size()))));
    }
    QWidget* top = QApplication::activeModalWidget();
    if (boxShown() != nullptr) { return boxShown()->buttons().front()->click(); }
    if (dialogShown() != nullptr) { return operate(*dialogShown()); }
    if (top != nullptr) { return QTest::keyClick(top, Qt::Key_Escape); }
    if (!user().wantsAnything()) { return; }
    constexpr int kMostQuestions = 6;
    if (++questions_ > kMostQuestions) { return key(below(2) == 0 ? Qt::Key_Escape : Qt::Key_Space); }
    if (user().wantsPoint()) { return type(QString("%1,%2").arg(100 * below(90)).arg(100 * below(90))); }
    key(Qt::Key_Return);
  }
  // Changes a few of its controls, then OK; Escape where that is refused.
  void operate(DialogWindow& dialog) {
    if (operated_ == &dialog) { return QTest::keyClick(&dialog, Qt::Key_Escape); }
    operated_ = &dialog;
    constexpr int kChanges = 5;
    for (int change = 0; change < kChanges && dialogShown() == &dialog; ++change) { changeOne(dialog); }
    if (dialogShown() == &dialog) { press(dialog, "OK"); }
  }
  void changeOne(DialogWindow& dialog) {
    QList<QWidget*> widgets;
    for (QWidget* widget : dialog.findChildren<QWidget*>()) {
      const bool known = qobject_cast<QCheckBox*>(widget) != nullptr ||
                         qobject_cast<QRadioButton*>(widget) != nullptr ||
                         qobject_cast<QComboBox*>(widget) != nullptr || qobject_cast<QLineEdit*>(widget) != nullptr ||
                         qobject_cast<QTableWidget*>(widget) != nullptr;
      if (known && widget->isVisible() && widget->isEnabled()) { widgets.append(widget); }
    }
    if (widgets.isEmpty()) { return; }
    QWidget* widget = widgets[below(static_cast<int>(widgets.size()))];
    widget->setFocus();
    QApplication::processEvents();  // a field that holds what it must not takes the focus back
    if (QApplication::focusWidget() != widget) { return; }
    if (auto* combo = qobject_cast<QComboBox*>(widget); combo != nullptr && !combo->isEditable()) {
      for (int steps = below(4); steps >= 0; --steps) { QTest::keyClick(combo, Qt::Key_Down); }
    } else if (auto* edit = qobject_cast<QLineEdit*>(widget); edit != nullptr && !edit->isReadOnly()) {
      edit->selectAll();
      QTest::keyClicks(edit, below(8) == 0 ? "x" : QString::number(1 + below(60)));
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
      button->click();
    } else if (auto* table = qobject_cast<QTableWidget*>(widget)) {
      changeCell(*table);
    }
  }
  void changeCell(QTableWidget& table) {
    constexpr int kFirstRows = 6;
    if (table.rowCount() == 0) { return; }
    QTableWidgetItem* item = table.item(below(std::min(kFirstRows, table.rowCount())), below(table.columnCount()));
    table.setCurrentItem(item);
    if ((item->flags() & Qt::ItemIsEditable) == 0) { return; }
    table.editItem(item);
    auto* editor = table.viewport()->findChild<QWidget*>({}, Qt::FindDirectChildrenOnly);
    if (auto* list = qobject_cast<QComboBox*>(editor)) {
      list->setCurrentIndex(below(list->count()));
    } else {
      QTest::keyClicks(editor, QString::number(1 + below(60)));
    }
    QTest::keyClick(editor, Qt::Key_Return);
  }

  int questions_ = 0;
  QWidget* answered_ = nullptr;
  QWidget* operated_ = nullptr;
};

TEST_F(RandomSessions, ReplayToTheSameDrawing) {
  constexpr int kSessions = 12;
  const std::string other = root_.toStdString() + "/other.ini";
  std::ofstream(other) << "[MechanicalTools]\r\nSpecFile=Other Mechspecs.ini\r\n[ArchitecturalTools]\r\n"
                          "SpecFile=Other ArchSpecs.ini\r\n"
                       << std::flush;
  const std::string libraries = otherLibraries();
  size_t drawn = 0;
  for (int session = 0; session < kSessions; ++session) {
    beginAnew();
    for (int command = 1 + below(3); command > 0; --command) {
      ASSERT_NO_FATAL_FAILURE(run(anyCommand()));
      if (below(2) == 0) { ASSERT_NO_FATAL_FAILURE(changeSelected()); }
      if (below(5) == 0) { window_->undo(); }
    }
    drawn += drawing().count();
    const std::string wanted = json();
    ASSERT_EQ(replayed(), wanted) << "session " << session << '\n' << window_->recorder().script().toStdString();
    ASSERT_EQ(replayed("", other), wanted) << "session " << session << " from other settings";
    ASSERT_EQ(replayed("", "", libraries), wanted) << "session " << session << " from other layers of walls";
  }
  EXPECT_GT(drawn, 300U);
}

}  // namespace
