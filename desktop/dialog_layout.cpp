#include "desktop/dialog_layout.h"

#include <QDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <algorithm>
#include <functional>
#include <map>

#include "desktop/texts.h"
#include "host/window/control_kinds.h"

namespace brevan {

using namespace dialog;

namespace {

// A control takes two columns of the grid, its caption's and its own, so that fields stand under each other; and two
// rows, its own and a spare one. What is several rows high reaches over the spare row under it, which takes what it is
// higher than the rows beside it: so fields beside a tall picture stay together.
void addTo(QGridLayout& grid, QWidget* widget, const Place& at, int firstColumn, int columns,
           Qt::Alignment alignment = {}) {
  grid.addWidget(widget, 2 * at.row, firstColumn, at.rowSpan > 1 ? 2 * at.rowSpan : 1, columns, alignment);
  if (at.rowSpan > 1) { grid.setRowStretch(2 * (at.row + at.rowSpan) - 1, 1); }
}

bool isLabelled(const Control& control) { return has(control.state, kLabelBefore) && !control.caption.empty(); }

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

class Builder {
 public:
  Builder(DialogOperator& owner, QDialog& window) : owner_(owner), window_(window), description_(owner.description()) {
    widgets_.controls.resize(description_.controls().size());
    widgets_.labels.resize(widgets_.controls.size());
    widgets_.groups.resize(description_.groups().size());
  }
  QWidget* build(int group);
  [[nodiscard]] DialogWidgets take() { return std::move(widgets_); }

 private:
  QWidget* make(int index);
  void addControl(int index, QGridLayout& grid);
  void layButtons(int group, QWidget& box);
  void gather(int group, QGridLayout& grid);
  void addMenuBar(int index);
  [[nodiscard]] bool isButtonRow(int group) const;
  [[nodiscard]] int controlCount() const { return static_cast<int>(widgets_.controls.size()); }

  DialogOperator& owner_;
  QDialog& window_;
  Dialog& description_;
  DialogWidgets widgets_;
};

QWidget* Builder::make(int index) {
  auto& made = widgets_.controls[static_cast<size_t>(index)];
  made = makeControlWidget(owner_, index, &window_);
  made->widget()->setObjectName(QString::fromStdString(std::to_string(index)));
  if (description_.toolTipsShown()) { made->widget()->setToolTip(shown(description_.control(index).toolTip)); }
  if (QWidget* target = made->focusTarget()) {
    target->setProperty("control", index);
    target->installEventFilter(&window_);
  }
  return made->widget();
}

void Builder::addControl(int index, QGridLayout& grid) {
  const Control& control = description_.control(index);
  if (std::holds_alternative<MenuBar>(control.state)) {
    addMenuBar(index);
    return;
  }
  QWidget* widget = make(index);
  const Place& at = control.place;
  if (isLabelled(control)) {
    auto* label = new QLabel(shown(control.caption), &window_);
    label->setBuddy(widgets_.controls[static_cast<size_t>(index)]->focusTarget());
    label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);  // stays beside its field
    grid.addWidget(label, 2 * at.row, 2 * at.column);
    widgets_.labels[static_cast<size_t>(index)] = label;
  }
  const bool indented = isLabelled(control) || has(control.state, kField) || !standsUnderLabels(description_, control);
  // Stays at the left of a wide column.
  addTo(grid, widget, at, 2 * at.column + (indented ? 1 : 0), 2 * at.columnSpan - (indented ? 1 : 0),
        has(control.state, kNarrow) ? Qt::AlignLeft : Qt::Alignment());
}

// A group that is given more room than it needs keeps its rows together, its buttons beside what they belong to, and
// its ticks in columns of one width, as those of the group under it.
void Builder::gather(int group, QGridLayout& grid) {
  std::map<int, bool> onlyButtons;  // by column
  bool onlyTicks = true;
  bool grows = group == 0;
  for (const Control& control : description_.controls()) {
    if (control.group != group) { continue; }
    const auto [column, isNew] = onlyButtons.try_emplace(control.place.column, true);
    column->second = column->second && std::holds_alternative<Button>(control.state);
    onlyTicks = onlyTicks && has(control.state, kTick);
    grows = grows || has(control.state, kGrows);
  }
  if (!grows && grid.rowCount() > 0) { grid.setRowStretch(grid.rowCount(), 1); }
  const bool mixed =
      std::any_of(onlyButtons.begin(), onlyButtons.end(), [](const auto& entry) { return entry.second; });
  for (const auto& [column, buttons] : onlyButtons) {
    if (onlyTicks || (mixed && !buttons)) { grid.setColumnStretch(2 * column + 1, 1); }
  }
}

QWidget* Builder::build(int group) {
  const dialog::Group& description = description_.groups()[static_cast<size_t>(group)];
  QWidget* box =
      description.caption.empty() ? new QWidget(&window_) : new QGroupBox(shown(description.caption), &window_);
  widgets_.groups[static_cast<size_t>(group)] = box;
  if (isButtonRow(group)) {
    layButtons(group, *box);
    return box;
  }
  auto* grid = new QGridLayout(box);
  if (description.caption.empty()) { grid->setContentsMargins(0, 0, 0, 0); }
  for (int control = 0; control < controlCount(); ++control) {
    if (description_.control(control).group == group) { addControl(control, *grid); }
  }
  for (int child = 1; child < static_cast<int>(widgets_.groups.size()); ++child) {
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
void Builder::layButtons(int group, QWidget& box) {
  auto* row = new QHBoxLayout(&box);
  row->setContentsMargins(0, 0, 0, 0);
  bool closing = false;
  for (int index = 0; index < controlCount(); ++index) {
    if (description_.control(index).group != group) { continue; }
    if (!closing && closes(description_.control(index).state)) {
      row->addStretch();
      closing = true;
    }
    row->addWidget(make(index));
  }
}

// A row of buttons among which are OK or Cancel.
bool Builder::isButtonRow(int group) const {
  bool ends = false;
  for (const Control& control : description_.controls()) {
    if (control.group != group) { continue; }
    if (!std::holds_alternative<Button>(control.state) || control.place.row != 0) { return false; }
    ends = ends || closes(control.state);
  }
  return ends;
}

void Builder::addMenuBar(int index) {
  auto* bar = new QMenuBar(&window_);
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
          action->setStatusTip(shown(item.statusText));
          if (description_.toolTipsShown()) { action->setToolTip(shown(item.toolTip)); }
          action->setCheckable(item.checked);
          action->setChecked(item.checked);
          QObject::connect(action, &QAction::triggered, &window_, [&owner = owner_, here] {
            owner.operate({Verb::kMenu, -1, {}, {here}});
          });
        }
      };
  for (const MenuItem& menu : description_.state<MenuBar>(index).menus) {
    QMenu* opened = bar->addMenu(shown(menu.caption));
    opened->setToolTipsVisible(description_.toolTipsShown());
    fill(*opened, menu.items, plainCaption(menu.caption));
  }
  window_.layout()->setMenuBar(bar);
}

}  // namespace

DialogWidgets layDialog(DialogOperator& owner, QDialog& window, QBoxLayout& column) {
  Builder builder(owner, window);
  column.addWidget(builder.build(0));
  return builder.take();
}

}  // namespace brevan
