#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "frame/host/dialog.h"
#include "host/window/dialog_session.h"

namespace brevan {

// What a control's widget tells the dialog that it stands in.
class DialogOperator {
 public:
  DialogOperator() = default;
  DialogOperator(const DialogOperator&) = delete;
  DialogOperator& operator=(const DialogOperator&) = delete;
  virtual ~DialogOperator() = default;
  // The user did something: runs it, shows a refusal at the control, notes the statement of a script.
  virtual void operate(int control, const std::function<DialogSession::Refusal(DialogSession&)>& action,
                       const QString& statement) = 0;
  [[nodiscard]] virtual dialog::Dialog& description() = 0;
  // A folder of vector art.
  [[nodiscard]] virtual QString pictureFolder() const = 0;
};

// Shows one control of a dialog's description.
class ControlWidget {
 public:
  ControlWidget(DialogOperator& owner, int control) : owner_(owner), control_(control) {}
  ControlWidget(const ControlWidget&) = delete;
  ControlWidget& operator=(const ControlWidget&) = delete;
  virtual ~ControlWidget() = default;

  [[nodiscard]] QWidget* widget() const { return widget_; }
  // The one that gets the keyboard; null where none does.
  [[nodiscard]] QWidget* focusTarget() const { return target_; }
  // Brings the widget in line with the description; tells nobody.
  virtual void show() = 0;
  virtual void selectAll() {}

 protected:
  template <class Kind>
  [[nodiscard]] Kind& state() const {
    return owner_.description().state<Kind>(control_);
  }
  [[nodiscard]] const dialog::Control& control() const { return owner_.description().control(control_); }
  // "set \"Address\"" of this control, for the recorder.
  [[nodiscard]] QString statement(const char* word, const QString& rest = {}) const;
  DialogOperator& owner_;
  int control_;
  QWidget* widget_ = nullptr;
  QWidget* target_ = nullptr;
};

// A text as a script's string.
QString scriptString(const QString& text);

// A caption as Qt marks it: "&" is the same, "_" nothing.
std::unique_ptr<ControlWidget> makeControlWidget(DialogOperator& owner, int control, QWidget* parent);
std::unique_ptr<ControlWidget> makeTextWidget(DialogOperator& owner, int control, QWidget* parent);
std::unique_ptr<ControlWidget> makeListWidget(DialogOperator& owner, int control, QWidget* parent);
std::unique_ptr<ControlWidget> makeGridWidget(DialogOperator& owner, int control, QWidget* parent);
std::unique_ptr<ControlWidget> makePictureWidget(DialogOperator& owner, int control, QWidget* parent);

// Whether the caption stands before the widget, as a field's does, and not in it.
bool hasLabelBefore(const dialog::State& state);

}  // namespace brevan
