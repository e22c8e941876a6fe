#pragma once

#include <QDialog>
#include <exception>
#include <memory>

#include "desktop/dialog_layout.h"
#include "host/window/dialog_session.h"

class QEventLoop;
class QLabel;

namespace brevan {

class Recorder;

// Shows any dialog's description, and operates it as its user does. What the description says is changed by the
// host's dialog session alone; the widgets follow it.
class DialogWindow : public QDialog, private DialogOperator {
  Q_OBJECT
 public:
  DialogWindow(dialog::Dialog& description, User& user, Recorder& recorder, QString pictureFolder, QWidget* parent);
  ~DialogWindow() override;

  // Until the dialog is closed; true for OK.
  bool run();
  [[nodiscard]] QString refusalShown() const;
  [[nodiscard]] dialog::Dialog& description() override { return description_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  class Session;
  void operate(const DialogOperation& operation) override;
  [[nodiscard]] QString pictureFolder() const override { return pictureFolder_; }

  void showControl(int control);
  void showControls();
  void showGroups();
  void showPictures();
  void focusArrived(int control);
  void giveFocus(int control, bool selectAll);
  void refuse(const QString& what) override;
  void showTip(const QString& tip);
  void endIfClosed();
  void cancel();

  dialog::Dialog& description_;
  Recorder& recorder_;
  QString pictureFolder_;
  std::unique_ptr<Session> session_;
  DialogWidgets widgets_;
  QLabel* message_ = nullptr;
  QEventLoop* loop_ = nullptr;
  std::exception_ptr error_;  // of a rule; thrown again where no Qt code is in between
  int operating_ = 0;
  bool rulesMovedFocus_ = false;
};

}  // namespace brevan
