#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <functional>

#include "desktop/command_runner.h"
#include "host/window/user.h"

class QEventLoop;
class QWidget;

namespace brevan {

class PromptBar;
class Recorder;

// The person before the desktop. Each question waits in an event loop of its own until it is answered, or until
// the command is asked to end: from then on every question is answered as with Escape.
class DesktopUser : public QObject, public User {
  Q_OBJECT
 public:
  DesktopUser(PromptBar& promptBar, Recorder& recorder, QString pictureFolder, QWidget* window);

  PointAnswer askPoint(const std::string& prompt) override;
  TextAnswer askText(const std::string& prompt, const std::string& fallback) override;
  void allowBack(bool allowed) override;
  void allowKeys(const std::vector<std::string>& keys) override;
  bool isAskedToGiveUp() override { return !cancelled_; }
  BoxAnswer showMessage(const MessageBox& box) override;
  std::optional<size_t> chooseFromMenu(const std::vector<std::string>& items) override;
  std::optional<ChosenFile> chooseFile(const FileRequest& request) override;
  std::optional<int> choosePen(const std::string& title, int pen) override;
  bool runDialog(dialog::Dialog& dialog) override;
  void showStatus(const std::string& text) override;
  void showSideBar(bool shown) override { emit sideBarShown(shown); }
  void showPrompt(const std::string& text) override;
  void showProgress(int done, int total, const std::string& text) override;
  bool stopsAtProgress(int done, int total, const std::string& text) override;

  // A command begins; a command was asked to end.
  void begin();
  void cancel();
  // A point picked in a drawing, a space or Escape pressed there.
  void givePoint(Point at);
  void giveSpace();
  void giveBack();
  void giveEscape();
  void giveKey(const QString& key);
  // Whether Tab answers the prompt, rather than going to the next field.
  [[nodiscard]] bool wantsTab() const { return wants_ == Wants::kPoint && keys_.contains("Tab"); }
  [[nodiscard]] bool wantsPoint() const { return wants_ == Wants::kPoint; }
  [[nodiscard]] bool wantsAnything() const { return wants_ != Wants::kNothing; }
  // A long computation lets events in, so that Escape can stop it.
  [[nodiscard]] bool showsProgress() const { return showsProgress_; }

 signals:
  // Something is about to be asked: what was drawn so far should be seen.
  void asking();
  void pointWanted(bool wanted);
  void pointGiven(Point at);
  void sideBarShown(bool shown);
  void statusChanged(const QString& text);
  void progressed(int done, int total, const QString& text);

 private:
  enum class Wants { kNothing, kPoint, kText };
  void wait(Wants wants);
  void answered();
  void countRefusal();
  [[nodiscard]] QWidget* topWindow() const;

  PromptBar& promptBar_;
  Recorder& recorder_;
  QString pictureFolder_;
  QWidget* window_;
  Wants wants_ = Wants::kNothing;
  QEventLoop* loop_ = nullptr;
  QPointer<QWidget> modal_;
  PointAnswer point_;
  TextAnswer text_;
  QStringList keys_;
  bool cancelled_ = false;
  bool showsProgress_ = false;
  int refusals_ = 0;
  QElapsedTimer sincePumped_;
};

}  // namespace brevan
