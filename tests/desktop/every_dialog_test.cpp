#include <QAbstractButton>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QMenuBar>
#include <QPainter>
#include <QTabBar>
#include <set>

#include "host/window/module.h"
#include "tests/desktop/desktop_session.h"

// Opens every dialog there is: those of all commands of the module, those behind their buttons, and the program's
// own. With BREVAN_PICTURES in the environment it saves a picture of each in that folder; docs/desktop.md tells how.
namespace {

using namespace brevan;

class EveryDialog : public DesktopSession {
 protected:
  void SetUp() override {
    std::ofstream(root_.toStdString() + "/settings.ini")
        << "[Desktop]\r\nDarkTheme=" << (qEnvironmentVariableIsSet("BREVAN_DARK") ? "1" : "0")
        << "\r\nDarkGround=" << (qEnvironmentVariableIsSet("BREVAN_DARK") ? "1" : "0") << "\r\n";
    DesktopSession::SetUp();
    const QString drawing = qEnvironmentVariable("BREVAN_PICTURED_DRAWING");
    if (drawing.isEmpty()) { return; }
    window_->openFile(drawing);
    QTest::qWait(50);
    window_->view().finishPainting();
    save(window_->grab(), "MainWindow");
  }

  // Begins something and sees through whatever it asks, with Escape.
  void visit(const QString& name, const std::function<void()>& begin) {
    name_ = name;
    shown_ = 0;
    seen_.clear();
    pressed_.clear();
    QTimer eyes;
    QObject::connect(&eyes, &QTimer::timeout, [this] { look(); });
    eyes.start(15);
    QElapsedTimer clock;
    clock.start();
    begin();
    constexpr int kPatience = 30'000;
    while ((window_->runner().busy() || QApplication::activeModalWidget() != nullptr) && clock.elapsed() < kPatience) {
      QTest::qWait(5);
    }
    ASSERT_LT(clock.elapsed(), kPatience) << name.toStdString() << " does not end";
    eyes.stop();
    for (QWidget* other : QApplication::topLevelWidgets()) {  // a window that stays beside the main one
      if (!other->isVisible() || other == window_.get() || other->isModal()) { continue; }
      inspect(*other);
      other->close();
    }
  }

  int shown_ = 0;  // dialogs and their pages since the visit began

 private:
  // A dialog that is open, with what is still to be tried in it.
  struct Open {
    QPointer<QWidget> window;
    std::deque<std::function<void()>> trials;
    int closings = 0;
  };

  void look() {
    if (QWidget* menu = QApplication::activePopupWidget()) {
      menu->close();
      return;
    }
    QWidget* top = QApplication::activeModalWidget();
    if (top == nullptr) {
      if (window_->runner().busy()) { key(Qt::Key_Escape); }
      return;
    }
    while (!seen_.empty() && seen_.back().window != top &&
           (seen_.back().window == nullptr || !seen_.back().window->isVisible())) {
      seen_.pop_back();
    }
    if (seen_.empty() || seen_.back().window != top) {
      seen_.push_back({top, trialsOf(top), 0});
      inspect(*top);
    } else if (!seen_.back().trials.empty()) {
      // On its own, since what it opens waits in an event loop of its own.
      QTimer::singleShot(0, seen_.back().trials.front());
      seen_.back().trials.pop_front();
    } else {
      close(*top, seen_.back().closings++);
    }
  }

  // First every page, then every button of every page.
  std::deque<std::function<void()>> trialsOf(QWidget* top) {
    std::deque<std::function<void()>> trials;
    if (qobject_cast<DialogWindow*>(top) == nullptr) { return trials; }
    auto* tabs = top->findChild<QTabBar*>();
    const int pages = tabs == nullptr ? 1 : tabs->count();
    const auto turnTo = [tabs](int page) {
      if (tabs != nullptr) { tabs->setCurrentIndex(page); }
    };
    for (int page = 1; page < pages; ++page) {
      trials.push_back([turnTo, page] { turnTo(page); });
      trials.push_back([this, top = QPointer<QWidget>(top)] {
        if (top != nullptr) { inspect(*top); }
      });
    }
    for (int page = 0; page < pages; ++page) {
      trials.push_back([turnTo, page] { turnTo(page); });
      trials.push_back([this, top = QPointer<QWidget>(top)] { pressAllOf(top); });
    }
    return trials;
  }
  void pressAllOf(const QPointer<QWidget>& top) {
    if (top == nullptr || seen_.empty()) { return; }
    int place = 0;
    for (QPushButton* button : top->findChildren<QPushButton*>()) {
      ++place;
      const QString caption = button->text().remove('&');
      if (!button->isVisible() || !button->isEnabled() || QStringList{"OK", "Cancel", "Close"}.contains(caption)) {
        continue;
      }
      // Once, since what it does may end with the same dialog again.
      if (!pressed_.insert(top->windowTitle() + QString::number(place) + caption).second) { continue; }
      seen_.back().trials.push_front([press = QPointer<QPushButton>(button)] {
        if (press != nullptr && press->isEnabled()) { press->click(); }
      });
    }
  }

  static void close(QWidget& top, int attempt) {
    const auto* question = qobject_cast<QMessageBox*>(&top);
    for (const auto button : {QMessageBox::No, QMessageBox::Discard}) {
      if (question != nullptr && (attempt > 0 || question->button(QMessageBox::Cancel) == nullptr) &&
          question->button(button) != nullptr) {
        question->button(button)->click();
        return;
      }
    }
    QTest::keyClick(&top, Qt::Key_Escape);
  }

  void inspect(QWidget& top) {
    ++shown_;
    const QString name = QString("%1-%2").arg(name_).arg(shown_);
    QApplication::processEvents();
    save(top.grab(), name);
    if (shown_ == 1 && !pictures().isEmpty()) {
      QPixmap over = window_->grab();
      QPainter(&over).drawPixmap((window_->rect().center() - top.rect().center()), top.grab());
      save(over, name_);
    }
    if (qobject_cast<QFileDialog*>(&top) == nullptr) { expectReadable(top, name.toStdString()); }
  }

  static QString pictures() { return qEnvironmentVariable("BREVAN_PICTURES"); }
  static void save(const QPixmap& picture, const QString& name) {
    if (!pictures().isEmpty()) { EXPECT_TRUE(picture.save(pictures() + '/' + name + ".png")) << name.toStdString(); }
  }

  // Nothing is narrower than its text; all of it fits on a small screen.
  static void expectReadable(const QWidget& top, const std::string& name) {
    constexpr QSize kSmallScreen(1366, 720);
    EXPECT_LE(top.width(), kSmallScreen.width()) << name;
    EXPECT_LE(top.height(), kSmallScreen.height()) << name;
    for (const QWidget* widget : top.findChildren<QWidget*>()) {
      if (!widget->isVisible() || widget->window() != &top) { continue; }
      const auto* label = qobject_cast<const QLabel*>(widget);
      const auto* button = qobject_cast<const QAbstractButton*>(widget);
      const bool words = (label != nullptr && !label->wordWrap() && !label->text().isEmpty()) ||
                         (button != nullptr && !button->text().isEmpty());
      const std::string text = label != nullptr    ? label->text().toStdString()
                               : button != nullptr ? button->text().toStdString()
                                                   : "";
      if (words) {
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << name << ": \"" << text << "\" is cut off";
        EXPECT_GE(widget->height(), widget->minimumSizeHint().height()) << name << ": \"" << text << "\" is cut off";
      }
      if (const auto* combo = qobject_cast<const QComboBox*>(widget); combo != nullptr && combo->count() > 0) {
        EXPECT_GE(combo->width() + 1, combo->minimumSizeHint().width())
            << name << ": " << combo->currentText().toStdString();
      }
      if (const auto* edit = qobject_cast<const QLineEdit*>(widget); edit != nullptr && edit->maximumWidth() < 200) {
        EXPECT_GE(edit->width() - 10, edit->fontMetrics().horizontalAdvance(edit->text()))
            << name << ": the number " << edit->text().toStdString() << " is cut off";
      }
      if (const auto* table = qobject_cast<const QTableWidget*>(widget)) {
        for (int column = 0; column < table->columnCount(); ++column) {
          const QString title = table->horizontalHeaderItem(column)->text();
          EXPECT_GE(table->columnWidth(column), table->horizontalHeader()->sectionSizeHint(column))
              << name << ": the column \"" << title.toStdString() << "\" is too narrow for its title";
        }
      }
      const QRect box(widget->mapTo(&top, QPoint(0, 0)), widget->size());
      if (words) { EXPECT_TRUE(top.rect().contains(box)) << name << ": \"" << text << "\" lies outside"; }
    }
  }

  QString name_;
  std::deque<Open> seen_;
  std::set<QString> pressed_;  // since the visit began
};

TEST_F(EveryDialog, IsWhollyReadable) {
  int opened = 0;
  for (const CommandRow& command : window_->host().module()->commands()) {
    const QString name = command.name;
    Parameters parameters = drawing().parameters();
    parameters.setCoordinateSystem(command.family == CommandFamily::kSurvey ? 0 : 1);
    drawing().setParameters(parameters);
    const std::string before = json();
    visit(name, [this, name] { window_->runCommand(name); });
    // Survey commands may leave another window current.
    if (command.family != CommandFamily::kSurvey) {
      EXPECT_EQ(json(), before) << name.toStdString() << " drew something";
    }
    opened += shown_ > 0 ? 1 : 0;
    if (QString(command.caption).endsWith("...")) { EXPECT_GT(shown_, 0) << name.toStdString() << " shows no dialog"; }
  }
  EXPECT_GT(opened, 0);
}

TEST_F(EveryDialog, OfTheProgramItselfIsWhollyReadable) {
  for (QAction* menu : window_->menuBar()->actions()) {
    const QString caption = menu->text().remove('&');
    for (QAction* action : menu->menu()->actions()) {
      const bool asks =
          (action->text().endsWith("...") && (caption == "File" || caption == "Edit")) || caption == "Help";
      if (!asks || action->isSeparator() || action->text().contains("Print")) { continue; }
      visit(action->text().remove('&').remove('.').remove(' '), [action] { action->trigger(); });
      EXPECT_GT(shown_, 0) << action->text().toStdString() << " shows no dialog";
    }
  }
}

}  // namespace
