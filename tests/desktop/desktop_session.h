#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <deque>
#include <filesystem>
#include <fstream>

#include "desktop/dialog_window.h"
#include "desktop/main_window.h"
#include "desktop/prompt_bar.h"
#include "host/files/json_writer.h"
#include "host/scripts/script_player.h"
#include "host/window/module.h"

// The real main window, offscreen, and a person's hands: steps that each wait for their moment, taken from the
// event loop, so that they go on while a command asks.
class DesktopSession : public ::testing::Test {
 protected:
  void SetUp() override { start(); }
  void TearDown() override { window_.reset(); }

  void start() {
    window_.reset();
    const std::string root = root_.toStdString();
    const std::string data = root + "/data";
    std::filesystem::copy(BREVAN_DATA, data,
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::skip_existing);
    brevan::DesktopParts parts;
    parts.places = {data, ARDENIX_MODULE, ""};
    parts.settingsFile = root + "/settings.ini";
    parts.helpFolder = data + "/Help";
    parts.recoveryFolder = root + "/recovery";
    {
      INI_LIST settings(parts.settingsFile);
      brevan::addFirstSettings(brevan::Module(ARDENIX_MODULE).commands(), settings);
      settings.Save();
    }
    window_ = std::make_unique<brevan::MainWindow>(parts);
    window_->show();
    QApplication::setActiveWindow(window_.get());
    QTest::qWait(20);
  }

  // Done once the moment has come.
  using Moment = std::function<bool()>;
  void when(Moment moment, std::function<void()> action) { steps_.push_back({std::move(moment), std::move(action)}); }
  void whenPrompted(const QString& start, std::function<void()> action) {
    when([this, start] { return user().wantsPoint() && prompt().startsWith(start); }, std::move(action));
  }
  void whenDialog(std::function<void(brevan::DialogWindow&)> action) {
    when([] { return dialogShown() != nullptr; }, [action = std::move(action)] { action(*dialogShown()); });
  }
  // Answers the next message box, which asks this where a question is given.
  void whenAsked(QMessageBox::StandardButton answer, const QString& question = {}) {
    when([question] { return boxShown() != nullptr && (question.isEmpty() || boxShown()->text() == question); },
         [answer] {
           // On its own, since what follows may wait in an event loop of its own.
           QTimer::singleShot(0, boxShown(), [box = boxShown(), answer] { box->button(answer)->click(); });
           QApplication::processEvents();
         });
  }
  // Begins and takes the steps until all are done and no command runs.
  void act(const std::function<void()>& begin) {
    QTimer hands;
    QElapsedTimer clock;
    clock.start();
    constexpr int kPatience = 10'000;
    QObject::connect(&hands, &QTimer::timeout, [&] {
      if (clock.elapsed() > kPatience) {
        if (!steps_.empty()) {
          ADD_FAILURE() << steps_.size() << " steps never had their moment; the prompt is " << prompt().toStdString()
                        << ", before all stands "
                        << (QApplication::activeModalWidget() != nullptr
                                ? QApplication::activeModalWidget()->metaObject()->className()
                                : "nothing");
        }
        steps_.clear();
        window_->runner().cancel();
        return;
      }
      if (steps_.empty() || !steps_.front().moment()) { return; }
      const auto action = steps_.front().action;
      steps_.pop_front();
      clock.restart();
      action();
    });
    hands.start(10);
    begin();
    while ((!steps_.empty() || window_->runner().busy()) && clock.elapsed() < 2 * kPatience) { QTest::qWait(10); }
  }

  // The next chooser takes this file.
  void chooses(const QString& path) {
    when([] { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()) != nullptr; },
         [path] {
           auto* chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
           auto* name = chooser->findChild<QLineEdit*>("fileNameEdit");
           name->setText(path);
           QTest::keyClick(name, Qt::Key_Return);
         });
  }
  // What is left to do will not have its moment.
  void giveUp() { steps_.clear(); }

  static brevan::DialogWindow* dialogShown() {
    return qobject_cast<brevan::DialogWindow*>(QApplication::activeModalWidget());
  }
  static QMessageBox* boxShown() { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); }
  QAction& action(const QString& caption) {
    for (QAction* found : window_->findChildren<QAction*>()) {
      if (found->text().remove('&') == caption) { return *found; }
    }
    throw std::runtime_error("no action " + caption.toStdString());
  }
  QLineEdit& edit() { return *window_->promptBar().edit(); }
  QString prompt() { return window_->findChild<QLabel*>("promptText")->text(); }
  brevan::DesktopUser& user() { return *window_->findChild<brevan::DesktopUser*>(); }
  brevan::Drawing& drawing() { return window_->host().window().drawing(); }
  std::string json() { return drawingJson(drawing()); }
  // What the recorded session draws in a host without a window, or why it does not. Statements given before it are
  // played when its settings have been set; the host starts from those that ship or from a file's. The libraries are
  // those that ship, without what the recorded session changed in its own, or those of another folder.
  std::string replayed(const std::string& before = "", const std::string& otherSettings = "",
                       const std::string& libraries = BREVAN_DATA) {
    std::string text = window_->recorder().script().toStdString();
    text.insert(text.find('\n', std::max(text.rfind("\nsetting ") + 1, text.find("\nsettings none") + 1)) + 1, before);
    return replay(text, otherSettings, libraries);
  }
  std::string replay(const std::string& text, const std::string& otherSettings = "",
                     const std::string& libraries = BREVAN_DATA) {
    const brevan::Script script = brevan::readScript("recorded.scr", text);
    const std::string root = folder_.path().toStdString();
    const std::string out = root + "/out" + std::to_string(++replays_);
    brevan::FileServices files(root, libraries, brevan::FileServices::Confinement{out, nullptr, {root}});
    INI_LIST settings(otherSettings);
    if (window_) { brevan::addFirstSettings(window_->host().module()->commands(), settings); }
    brevan::ScriptPlayer player(script, brevan::PlayerParts{files, settings, {}, ARDENIX_MODULE, "", nullptr, {}, {}});
    try {
      player.play();
    } catch (const std::exception& failure) { return std::string(failure.what()) + "\n" + text; }
    return drawingJson(player.host().window().drawing());
  }
  // Begins a command by its name, typed.
  void type(const QString& command) { keys(command), key(Qt::Key_Return); }
  static void press(QWidget& dialog, const QString& caption) {
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
      if (button->text().remove('&') == caption) { return QTest::mouseClick(button, Qt::LeftButton); }
    }
    ADD_FAILURE() << "no button " << caption.toStdString();
  }
  void keys(const QString& text) { QTest::keyClicks(&edit(), text); }
  void key(Qt::Key which) { QTest::keyClick(&edit(), which); }
  void click(brevan::Point at) {
    QTest::mouseClick(&window_->view(), Qt::LeftButton, Qt::NoModifier, window_->view().toDevice(at).toPoint());
  }

  QTemporaryDir folder_;
  QString root_ = folder_.path();  // of settings, libraries and recovery files
  std::unique_ptr<brevan::MainWindow> window_;

 private:
  struct Step {
    Moment moment;
    std::function<void()> action;
  };
  std::deque<Step> steps_;
  int replays_ = 0;
};
