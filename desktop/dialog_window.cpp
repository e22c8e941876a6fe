#include "desktop/dialog_window.h"

#include <QEventLoop>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/recorder.h"
#include "desktop/texts.h"
#include "host/window/control_kinds.h"

namespace brevan {

using namespace dialog;

// The host's session, which tells the window what its rules change.
class DialogWindow::Session : public DialogSession {
 public:
  Session(DialogWindow& window, Dialog& description, User& user, Recorder& recorder)
      : DialogSession(description, user, &recorder), window_(window) {}
  void controlChanged(int control) override { window_.showControl(control); }
  void groupChanged(int) override { window_.showGroups(); }
  void focusMoved(int control, bool selectAll) override {
    DialogSession::focusMoved(control, selectAll);
    window_.rulesMovedFocus_ = true;
    window_.giveFocus(control, selectAll);
  }
  void titleChanged() override { window_.setWindowTitle(brevan::shown(window_.description_.title())); }

 private:
  DialogWindow& window_;
};

DialogWindow::DialogWindow(Dialog& description, User& user, Recorder& recorder, QString pictureFolder, QWidget* parent)
    : QDialog(parent), description_(description), recorder_(recorder), pictureFolder_(std::move(pictureFolder)) {
  setWindowTitle(shown(description.title()));
  setModal(true);
  auto* column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetMinimumSize);
  widgets_ = layDialog(*this, *this, *column);
  message_ = new QLabel(this);
  message_->setObjectName("refusal");
  message_->setTextFormat(Qt::PlainText);
  message_->setWordWrap(true);
  message_->hide();
  column->addWidget(message_);
  session_ = std::make_unique<Session>(*this, description, user, recorder);
}

DialogWindow::~DialogWindow() = default;

// ---- Showing ------------------------------------------------------------------------------------------------------

void DialogWindow::showControl(int control) {
  const auto place = static_cast<size_t>(control);
  if (place >= widgets_.controls.size() || widgets_.controls[place] == nullptr) { return; }
  const Control& described = description_.control(control);
  QWidget* widget = widgets_.controls[place]->widget();
  widgets_.controls[place]->show();
  const bool enabled = described.enabled;
  if (widget->isEnabled() != enabled) { widget->setEnabled(enabled); }
  widget->setVisible(described.visible);
  if (widgets_.labels[place] != nullptr) {
    widgets_.labels[place]->setVisible(described.visible);
    widgets_.labels[place]->setEnabled(enabled);
  }
  if (std::holds_alternative<Tabs>(described.state)) { showGroups(); }
  showPictures();
}

void DialogWindow::showControls() {
  for (size_t control = 0; control < widgets_.controls.size(); ++control) { showControl(static_cast<int>(control)); }
}

// Canvases and previews show what the other controls hold.
void DialogWindow::showPictures() {
  for (size_t other = 0; other < widgets_.controls.size(); ++other) {
    if (widgets_.controls[other] == nullptr) { continue; }
    const State& state = description_.control(static_cast<int>(other)).state;
    if (has(state, kRepainted)) { widgets_.controls[other]->show(); }
  }
}

void DialogWindow::showGroups() {
  int page = -1;
  for (const Control& control : description_.controls()) {
    if (const auto* tabs = std::get_if<Tabs>(&control.state)) { page = tabs->current; }
  }
  for (size_t group = 1; group < widgets_.groups.size(); ++group) {
    const dialog::Group& described = description_.groups()[group];
    if (widgets_.groups[group] != nullptr) {
      widgets_.groups[group]->setVisible(described.visible && (described.page < 0 || described.page == page));
    }
  }
}

QString DialogWindow::refusalShown() const { return message_->isHidden() ? QString() : message_->text(); }

void DialogWindow::giveFocus(int control, bool selectAll) {
  const auto place = static_cast<size_t>(control);
  if (control < 0 || place >= widgets_.controls.size() || widgets_.controls[place] == nullptr) { return; }
  if (QWidget* target = widgets_.controls[place]->focusTarget()) { target->setFocus(Qt::OtherFocusReason); }
  if (selectAll) { widgets_.controls[place]->selectAll(); }
}

// ---- Operating ----------------------------------------------------------------------------------------------------

void DialogWindow::refuse(const QString& what) {
  message_->setText(what);
  message_->setStyleSheet(palette().color(QPalette::Window).lightness() < 128 ? "color: #ff8a80" : "color: #b00020");
  message_->show();
}

namespace {

bool pressesOk(Dialog& description, const DialogOperation& operation) {
  if (operation.verb != Verb::kPress || operation.control < 0) { return false; }
  const auto* button = std::get_if<Button>(&description.controls()[static_cast<size_t>(operation.control)].state);
  return button != nullptr && button->role == ButtonRole::kOk;
}

}  // namespace

void DialogWindow::operate(const DialogOperation& operation) {
  const qsizetype place = recorder_.lines().size();
  const QStringList values = pressesOk(description_, operation) ? Recorder::values(description_) : QStringList();
  recorder_.operated(description_, operation);
  ++operating_;
  rulesMovedFocus_ = false;
  DialogSession::Refusal refusal;
  try {
    refusal = session_->perform(operation);
  } catch (...) {
    error_ = std::current_exception();
    description_.close(false);
  }
  --operating_;
  if (description_.closed() && description_.accepted()) { recorder_.insert(place, values); }
  if (refusal) {
    if (operation.recorded) { recorder_.refused(*refusal); }
    if (!rulesMovedFocus_) { refuse(shown(*refusal)); }
    // After the event that brought the focus elsewhere.
    QTimer::singleShot(0, this, [this] {
      showControls();
      giveFocus(description_.focus(), true);
    });
  } else {
    message_->hide();
  }
  showPictures();  // a preview marks what the field in focus sets
  endIfClosed();
}

void DialogWindow::focusArrived(int control) {
  if (operating_ > 0 || control == description_.focus() || description_.closed()) { return; }
  operate({Verb::kFocus, control});
}

bool DialogWindow::event(QEvent* event) {
  if (event->type() == QEvent::StatusTip) { showTip(static_cast<QStatusTipEvent*>(event)->tip()); }
  return QDialog::event(event);
}

// What a menu item says of itself stands in the status line for as long as the item is chosen.
void DialogWindow::showTip(const QString& tip) {
  for (size_t control = 0; control < widgets_.controls.size(); ++control) {
    const auto* line = std::get_if<StatusLine>(&description_.control(static_cast<int>(control)).state);
    if (line == nullptr) { continue; }
    static_cast<QLabel*>(widgets_.controls[control]->widget())->setText(tip.isEmpty() ? shown(line->text) : tip);
  }
}

bool DialogWindow::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::FocusIn) { focusArrived(object->property("control").toInt()); }
  return QDialog::eventFilter(object, event);
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    operate({Verb::kHelp});
  } else if (event->key() == Qt::Key_Escape) {
    cancel();
  } else {
    QDialog::keyPressEvent(event);
  }
}

void DialogWindow::closeEvent(QCloseEvent* event) {
  if (description_.closed()) { return; }
  event->ignore();
  cancel();
}

void DialogWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange && session_ != nullptr) { showControls(); }
  QDialog::changeEvent(event);
}

void DialogWindow::cancel() { operate({Verb::kClose}); }

void DialogWindow::endIfClosed() {
  if (description_.closed() && loop_ != nullptr) { loop_->quit(); }
}

bool DialogWindow::run() {
  recorder_.dialogOpened(shown(description_.title()));
  ++operating_;
  session_->open();
  --operating_;
  if (description_.closed()) { return description_.accepted(); }
  showControls();
  showGroups();
  ++operating_;
  show();
  giveFocus(description_.focus(), true);
  --operating_;
  QEventLoop loop;
  loop_ = &loop;
  loop.exec();
  loop_ = nullptr;
  hide();
  if (error_) { std::rethrow_exception(error_); }
  return description_.accepted();
}

}  // namespace brevan
