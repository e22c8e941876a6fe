#pragma once

#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "frame/host/dialog_description.h"
#include "host/window/dialog_operations.h"

namespace brevan {

// What a control's widget tells the dialog that it stands in.
class DialogOperator {
 public:
  DialogOperator() = default;
  DialogOperator(const DialogOperator&) = delete;
  DialogOperator& operator=(const DialogOperator&) = delete;
  virtual ~DialogOperator() = default;
  // The user did something: carries it out, shows a refusal at the control, notes the statement of a script.
  virtual void operate(const DialogOperation& operation) = 0;
  // Says why what the user did cannot become an operation.
  virtual void refuse(const QString& what) = 0;
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
  // What the user did to this control.
  void operate(Verb verb, std::vector<std::string> texts = {}, std::optional<int> number = {}) const {
    owner_.operate({verb, control_, number, std::move(texts)});
  }
  DialogOperator& owner_;
  int control_;
  QWidget* widget_ = nullptr;
  QWidget* target_ = nullptr;
};

struct WidgetPlace {
  DialogOperator& owner;
  int control;
  QWidget* parent;
};
using MadeWidget = std::unique_ptr<ControlWidget>;

// The widget of a control, by its kind; null for a menu bar, which is no part of the layout. Each kind has one of the
// functions below, so that none can be forgotten.
MadeWidget makeControlWidget(DialogOperator& owner, int control, QWidget* parent);

MadeWidget makeWidget(const dialog::Label&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::StatusLine&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::ReadOnlyText&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::NumberEdit&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::TextEdit& text, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::CheckBox&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::RadioGroup&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::DropDown&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::PictureList&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::LineTypeList&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::ListBox&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::ColumnList&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::Tree&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::PenButton&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::Picture&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::PixelCanvas&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::Preview&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::Button&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::Grid&, const WidgetPlace& place);
MadeWidget makeWidget(const dialog::Tabs&, const WidgetPlace& place);
inline MadeWidget makeWidget(const dialog::MenuBar&, const WidgetPlace&) { return nullptr; }

}  // namespace brevan
