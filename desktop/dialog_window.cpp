#include "desktop/dialog_window.h"

#include <QEventLoop>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/recorder.h"
#include "desktop/texts.h"
#include "host/window/control_text.h"

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
  controls_.resize(description.controls().size());
  labels_.resize(controls_.size());
  groups_.resize(description.groups().size());
  auto* column = new QVBoxLayout(this);
  column->setSizeConstraint(QLayout::SetMinimumSize);
  column->addWidget(build(0));
  message_ = new QLabel(this);
  message_->setObjectName("refusal");
  message_->setTextFormat(Qt::PlainText);
  message_->setWordWrap(true);
  message_->hide();
  column->addWidget(message_);
  session_ = std::make_unique<Session>(*this, description, user, recorder);
}

DialogWindow::~DialogWindow() = default;

// ---- Layout -----------------------------------------------------------------------------------------------------

// A control takes two columns of the grid: its caption's and its own, so that fields stand under each other.
void DialogWindow::addControl(int index, QGridLayout& grid) {
  const Control& control = description_.control(index);
  if (std::holds_alternative<MenuBar>(control.state)) {
    addMenuBar(index);
    return;
  }
  const auto place = static_cast<size_t>(index);
  controls_[place] = makeControlWidget(*this, index, this);
  QWidget* widget = controls_[place]->widget();
  const Place& at = control.place;
  const bool labelled = hasLabelBefore(control.state) && !control.caption.empty();
  if (labelled) {
    labels_[place] = new QLabel(shown(control.caption), this);
    labels_[place]->setBuddy(controls_[place]->focusTarget());
    grid.addWidget(labels_[place], at.row, 2 * at.column);
  }
  const int first = 2 * at.column + (labelled ? 1 : 0);
  grid.addWidget(widget, at.row, first, at.rowSpan, 2 * at.columnSpan - (labelled ? 1 : 0));
  widget->setObjectName(QString::fromStdString(std::to_string(index)));
  if (description_.toolTipsShown()) { widget->setToolTip(shown(control.toolTip)); }
  if (QWidget* target = controls_[place]->focusTarget()) {
    target->setProperty("control", index);
    target->installEventFilter(this);
  }
}

QWidget* DialogWindow::build(int group) {
  const dialog::Group& description = description_.groups()[static_cast<size_t>(group)];
  QWidget* box = description.caption.empty() ? new QWidget(this) : new QGroupBox(shown(description.caption), this);
  groups_[static_cast<size_t>(group)] = box;
  auto* grid = new QGridLayout(box);
  if (description.caption.empty()) { grid->setContentsMargins(0, 0, 0, 0); }
  for (int control = 0; control < static_cast<int>(controls_.size()); ++control) {
    if (description_.control(control).group == group) { addControl(control, *grid); }
  }
  for (int child = 1; child < static_cast<int>(groups_.size()); ++child) {
    const dialog::Group& inner = description_.groups()[static_cast<size_t>(child)];
    if (inner.parent != group) { continue; }
    grid->addWidget(build(child), inner.place.row, 2 * inner.place.column, inner.place.rowSpan,
                    2 * inner.place.columnSpan);
  }
  return box;
}

void DialogWindow::addMenuBar(int index) {
  auto* bar = new QMenuBar(this);
  const std::function<void(QMenu&, const std::vector<MenuItem>&, const std::string&)> fill =
      [&](QMenu& menu, const std::vector<MenuItem>& items, const std::string& path) {
        for (const MenuItem& item : items) {
          if (item.caption.empty()) {
            menu.addSeparator();
            continue;
          }
          const std::string here = path + '/' + plainCaption(item.caption);
          if (!item.items.empty()) {
            fill(*menu.addMenu(shown(item.caption)), item.items, here);
            continue;
          }
          QAction* action = menu.addAction(shown(item.caption));
          action->setEnabled(item.enabled);
          action->setCheckable(item.checked);
          action->setChecked(item.checked);
          connect(action, &QAction::triggered, this, [this, index, here] {
            operate(
                index, [here](DialogSession& session) { return session.chooseMenu(here); },
                "menu " + scriptString(shown(here)));
          });
        }
      };
  for (const MenuItem& menu : description_.state<MenuBar>(index).menus) {
    fill(*bar->addMenu(shown(menu.caption)), menu.items, plainCaption(menu.caption));
  }
  layout()->setMenuBar(bar);
}

// ---- Showing ------------------------------------------------------------------------------------------------------

void DialogWindow::showControl(int control) {
  const auto place = static_cast<size_t>(control);
  if (place >= controls_.size() || controls_[place] == nullptr) { return; }
  const Control& described = description_.control(control);
  QWidget* widget = controls_[place]->widget();
  controls_[place]->show();
  const bool enabled = described.enabled;
  if (widget->isEnabled() != enabled) { widget->setEnabled(enabled); }
  widget->setVisible(described.visible);
  if (labels_[place] != nullptr) {
    labels_[place]->setVisible(described.visible);
    labels_[place]->setEnabled(enabled);
  }
  if (std::holds_alternative<Tabs>(described.state)) { showGroups(); }
  showPictures();
}

// Canvases and previews show what the other controls hold.
void DialogWindow::showPictures() {
  for (size_t other = 0; other < controls_.size(); ++other) {
    if (controls_[other] == nullptr) { continue; }
    const State& state = description_.control(static_cast<int>(other)).state;
    if (std::holds_alternative<PixelCanvas>(state) || std::holds_alternative<Preview>(state)) {
      controls_[other]->show();
    }
  }
}

void DialogWindow::showGroups() {
  int page = -1;
  for (const Control& control : description_.controls()) {
    if (const auto* tabs = std::get_if<Tabs>(&control.state)) { page = tabs->current; }
  }
  for (size_t group = 1; group < groups_.size(); ++group) {
    const dialog::Group& described = description_.groups()[group];
    if (groups_[group] != nullptr) {
      groups_[group]->setVisible(described.visible && (described.page < 0 || described.page == page));
    }
  }
}

QWidget* DialogWindow::widgetOf(int control) const {
  const auto& widget = controls_.at(static_cast<size_t>(control));
  return widget == nullptr ? nullptr : widget->focusTarget() != nullptr ? widget->focusTarget() : widget->widget();
}

QString DialogWindow::refusalShown() const { return message_->isHidden() ? QString() : message_->text(); }

void DialogWindow::giveFocus(int control, bool selectAll) {
  const auto place = static_cast<size_t>(control);
  if (control < 0 || place >= controls_.size() || controls_[place] == nullptr) { return; }
  if (QWidget* target = controls_[place]->focusTarget()) { target->setFocus(Qt::OtherFocusReason); }
  if (selectAll) { controls_[place]->selectAll(); }
}

// ---- Operating ----------------------------------------------------------------------------------------------------

void DialogWindow::refuse(const QString& what) {
  message_->setText(what);
  message_->setStyleSheet(palette().color(QPalette::Window).lightness() < 128 ? "color: #ff8a80" : "color: #b00020");
  message_->show();
}

void DialogWindow::operate(int, const std::function<DialogSession::Refusal(DialogSession&)>& action,
                           const QString& statement) {
  recorder_.dialogStatement(statement);
  ++operating_;
  rulesMovedFocus_ = false;
  DialogSession::Refusal refusal;
  try {
    refusal = action(*session_);
  } catch (...) {
    error_ = std::current_exception();
    description_.close(false);
  }
  --operating_;
  if (refusal) {
    if (!rulesMovedFocus_) { refuse(shown(*refusal)); }
    // After the event that brought the focus elsewhere.
    QTimer::singleShot(0, this, [this] {
      for (size_t control = 0; control < controls_.size(); ++control) { showControl(static_cast<int>(control)); }
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
  operate(
      control, [control](DialogSession& session) { return session.focus(control); },
      "focus " + scriptString(shown(addressOf(description_, control))));
}

bool DialogWindow::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::FocusIn) { focusArrived(object->property("control").toInt()); }
  return QDialog::eventFilter(object, event);
}

void DialogWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    operate(
        -1,
        [this](DialogSession& session) -> DialogSession::Refusal {
          session.help(description_.focus());
          return std::nullopt;
        },
        "help");
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
  if (event->type() == QEvent::PaletteChange && session_ != nullptr) {
    for (size_t control = 0; control < controls_.size(); ++control) { showControl(static_cast<int>(control)); }
  }
  QDialog::changeEvent(event);
}

void DialogWindow::cancel() {
  operate(
      -1,
      [](DialogSession& session) -> DialogSession::Refusal {
        session.cancel();
        return std::nullopt;
      },
      "close");
}

void DialogWindow::endIfClosed() {
  if (description_.closed() && loop_ != nullptr) { loop_->quit(); }
}

bool DialogWindow::run() {
  recorder_.dialogOpened(shown(description_.title()));
  ++operating_;
  session_->open();
  --operating_;
  if (description_.closed()) { return description_.accepted(); }
  for (size_t control = 0; control < controls_.size(); ++control) { showControl(static_cast<int>(control)); }
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
