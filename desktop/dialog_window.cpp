#include "desktop/dialog_window.h"

#include <QEventLoop>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <map>

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

namespace {

// A control takes two columns of the grid, its caption's and its own, so that fields stand under each other; and two
// rows, its own and a spare one. What is several rows high reaches over the spare row under it, which takes what it is
// higher than the rows beside it: so fields beside a tall picture stay together.
void addTo(QGridLayout& grid, QWidget* widget, const Place& at, int firstColumn, int columns,
           Qt::Alignment alignment = {}) {
  grid.addWidget(widget, 2 * at.row, firstColumn, at.rowSpan > 1 ? 2 * at.rowSpan : 1, columns, alignment);
  if (at.rowSpan > 1) { grid.setRowStretch(2 * (at.row + at.rowSpan) - 1, 1); }
}

bool isField(const State& state) {
  return std::holds_alternative<NumberEdit>(state) || std::holds_alternative<TextEdit>(state) ||
         std::holds_alternative<DropDown>(state) || std::holds_alternative<ReadOnlyText>(state);
}

bool isLabelled(const Control& control) { return hasLabelBefore(control.state) && !control.caption.empty(); }

// Whether captions stand at the left of the column in which this control is.
bool standsUnderLabels(Dialog& description, const Control& control) {
  const std::vector<Control>& all = description.controls();
  return std::any_of(all.begin(), all.end(), [&control](const Control& other) {
    return other.group == control.group && other.place.column == control.place.column && isLabelled(other);
  });
}

bool closes(const State& state) {
  const auto* button = std::get_if<Button>(&state);
  return button != nullptr && button->role != ButtonRole::kPlain;
}

}  // namespace

QWidget* DialogWindow::make(int index) {
  auto& made = controls_[static_cast<size_t>(index)];
  made = makeControlWidget(*this, index, this);
  made->widget()->setObjectName(QString::fromStdString(std::to_string(index)));
  if (description_.toolTipsShown()) { made->widget()->setToolTip(shown(description_.control(index).toolTip)); }
  if (QWidget* target = made->focusTarget()) {
    target->setProperty("control", index);
    target->installEventFilter(this);
  }
  return made->widget();
}

void DialogWindow::addControl(int index, QGridLayout& grid) {
  const Control& control = description_.control(index);
  if (std::holds_alternative<MenuBar>(control.state)) {
    addMenuBar(index);
    return;
  }
  QWidget* widget = make(index);
  const Place& at = control.place;
  if (isLabelled(control)) {
    auto* label = new QLabel(shown(control.caption), this);
    label->setBuddy(controls_[static_cast<size_t>(index)]->focusTarget());
    label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);  // stays beside its field
    grid.addWidget(label, 2 * at.row, 2 * at.column);
    labels_[static_cast<size_t>(index)] = label;
  }
  const bool indented = isLabelled(control) || isField(control.state) || !standsUnderLabels(description_, control);
  // Stays at the left of a wide column.
  const bool narrow =
      std::holds_alternative<NumberEdit>(control.state) || std::holds_alternative<Button>(control.state);
  addTo(grid, widget, at, 2 * at.column + (indented ? 1 : 0), 2 * at.columnSpan - (indented ? 1 : 0),
        narrow ? Qt::AlignLeft : Qt::Alignment());
}

// A group that is given more room than it needs keeps its rows together, its buttons beside what they belong to, and
// its ticks in columns of one width, as those of the group under it.
void DialogWindow::gather(int group, QGridLayout& grid) {
  std::map<int, bool> onlyButtons;  // by column
  bool onlyTicks = true;
  bool grows = group == 0;
  for (const Control& control : description_.controls()) {
    if (control.group != group) { continue; }
    const auto [column, isNew] = onlyButtons.try_emplace(control.place.column, true);
    column->second = column->second && std::holds_alternative<Button>(control.state);
    onlyTicks = onlyTicks &&
                (std::holds_alternative<CheckBox>(control.state) || std::holds_alternative<RadioGroup>(control.state));
    const auto* text = std::get_if<TextEdit>(&control.state);
    grows = grows || (text != nullptr && text->multiline) || std::holds_alternative<Grid>(control.state) ||
            std::holds_alternative<ListBox>(control.state) || std::holds_alternative<ColumnList>(control.state) ||
            std::holds_alternative<Tree>(control.state) || std::holds_alternative<Preview>(control.state);
  }
  if (!grows && grid.rowCount() > 0) { grid.setRowStretch(grid.rowCount(), 1); }
  const bool mixed =
      std::any_of(onlyButtons.begin(), onlyButtons.end(), [](const auto& entry) { return entry.second; });
  for (const auto& [column, buttons] : onlyButtons) {
    if (onlyTicks || (mixed && !buttons)) { grid.setColumnStretch(2 * column + 1, 1); }
  }
}

QWidget* DialogWindow::build(int group) {
  const dialog::Group& description = description_.groups()[static_cast<size_t>(group)];
  QWidget* box = description.caption.empty() ? new QWidget(this) : new QGroupBox(shown(description.caption), this);
  groups_[static_cast<size_t>(group)] = box;
  if (isButtonRow(group)) {
    layButtons(group, *box);
    return box;
  }
  auto* grid = new QGridLayout(box);
  if (description.caption.empty()) { grid->setContentsMargins(0, 0, 0, 0); }
  for (int control = 0; control < static_cast<int>(controls_.size()); ++control) {
    if (description_.control(control).group == group) { addControl(control, *grid); }
  }
  for (int child = 1; child < static_cast<int>(groups_.size()); ++child) {
    const dialog::Group& inner = description_.groups()[static_cast<size_t>(child)];
    if (inner.parent != group) { continue; }
    QWidget* const built = build(child);
    const bool foot = group == 0 && isButtonRow(child);  // under all columns
    addTo(*grid, built, inner.place, 2 * inner.place.column, foot ? -1 : 2 * inner.place.columnSpan);
  }
  gather(group, *grid);
  return box;
}

// What closes the dialog stands at the right, what else there is to press at the left.
void DialogWindow::layButtons(int group, QWidget& box) {
  auto* row = new QHBoxLayout(&box);
  row->setContentsMargins(0, 0, 0, 0);
  bool closing = false;
  for (int index = 0; index < static_cast<int>(controls_.size()); ++index) {
    if (description_.control(index).group != group) { continue; }
    if (!closing && closes(description_.control(index).state)) {
      row->addStretch();
      closing = true;
    }
    row->addWidget(make(index));
  }
}

// A row of buttons among which are OK or Cancel.
bool DialogWindow::isButtonRow(int group) const {
  bool ends = false;
  for (const Control& control : description_.controls()) {
    if (control.group != group) { continue; }
    if (!std::holds_alternative<Button>(control.state) || control.place.row != 0) { return false; }
    ends = ends || closes(control.state);
  }
  return ends;
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
