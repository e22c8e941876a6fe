#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>

#include "desktop/control_widgets.h"
#include "desktop/pen_widgets.h"
#include "desktop/picture_files.h"
#include "desktop/texts.h"
#include "frame/host/limits.h"
#include "host/window/control_text.h"

// Lists and trees.
namespace brevan {

using namespace dialog;

namespace {

// Drop-down lists: plain and editable ones, pictures, line types.
class ComboWidget : public ControlWidget {
 public:
  ComboWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    combo_ = new QComboBox(parent);
    widget_ = target_ = combo_;
    combo_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    combo_->setMinimumContentsLength(8);
    QObject::connect(combo_, &QComboBox::activated, combo_, [this](int item) {
      const std::string entry = entries().at(static_cast<size_t>(item));
      owner_.operate(
          control_, [this, entry](DialogSession& session) { return session.choose(control_, entry); },
          statement("pick", scriptString(brevan::shown(entry))));
    });
    const auto* list = std::get_if<DropDown>(&this->control().state);
    if (list == nullptr || !list->editable) { return; }
    combo_->setEditable(true);
    combo_->setInsertPolicy(QComboBox::NoInsert);
    combo_->setCompleter(nullptr);
    QObject::connect(combo_->lineEdit(), &QLineEdit::textEdited, combo_, [this](const QString& text) {
      const auto taken = hostText(text);
      if (!taken) { return; }
      owner_.operate(
          control_, [this, taken](DialogSession& session) { return session.replaceText(control_, *taken); },
          statement("type", scriptString(text)));
    });
  }

  void show() override {
    const std::vector<std::string> items = entries();
    if (items != shownItems_) { fill(items); }
    const State& now = control().state;
    if (const auto* list = std::get_if<DropDown>(&now)) {
      combo_->setCurrentIndex(list->selected);
      const QString text = brevan::shown(list->text);
      if (list->editable && combo_->currentText() != text) { combo_->setEditText(text); }
    } else if (const auto* pictures = std::get_if<PictureList>(&now)) {
      combo_->setCurrentIndex(pictures->selected);
    } else {
      combo_->setCurrentIndex(state<LineTypeList>().selected);
    }
  }

 private:
  [[nodiscard]] std::vector<std::string> entries() const {
    if (!std::holds_alternative<LineTypeList>(control().state)) { return itemTexts(control().state); }
    std::vector<std::string> numbers;
    for (int number = 1; number <= limits::kListedLineTypes.most; ++number) {
      numbers.push_back(std::to_string(number));
    }
    return numbers;
  }
  void fill(const std::vector<std::string>& items) {
    combo_->clear();
    const auto* pictures = std::get_if<PictureList>(&control().state);
    const bool lineTypes = std::holds_alternative<LineTypeList>(control().state);
    if (lineTypes) { combo_->setIconSize(lineTypeIconSize()); }
    if (pictures != nullptr) { combo_->setIconSize({50, 30}); }
    for (size_t item = 0; item < items.size(); ++item) {
      QIcon icon;
      if (lineTypes) { icon = lineTypeIcon(static_cast<int>(item) + 1, *combo_); }
      if (pictures != nullptr) {
        icon = pictureIcon(owner_.pictureFolder(), brevan::shown(pictures->items[item].picture), {50, 30}, *combo_);
      }
      combo_->addItem(icon, brevan::shown(items[item]));
    }
    shownItems_ = items;
  }
  QComboBox* combo_;
  std::vector<std::string> shownItems_;
};

class ListWidget : public ControlWidget {
 public:
  ListWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    list_ = new QListWidget(parent);
    widget_ = target_ = list_;
    list_->setMinimumSize(160, 90);
    if (state<ListBox>().multiple) { list_->setSelectionMode(QAbstractItemView::ExtendedSelection); }
    QObject::connect(list_, &QListWidget::itemSelectionChanged, list_, [this] { choose(); });
  }
  void show() override {
    const ListBox& box = state<ListBox>();
    const QSignalBlocker silent(list_);
    list_->clear();
    for (size_t item = 0; item < box.items.size(); ++item) {
      auto* row = new QListWidgetItem(brevan::shown(box.items[item]), list_);
      row->setSelected(item < box.selected.size() && box.selected[item]);
      if (row->isSelected()) { list_->setCurrentItem(row, QItemSelectionModel::NoUpdate); }
    }
  }

 private:
  void choose() {
    std::vector<std::string> items;
    QStringList words;
    for (int row = 0; row < list_->count(); ++row) {
      if (!list_->item(row)->isSelected()) { continue; }
      items.push_back(state<ListBox>().items.at(static_cast<size_t>(row)));
      words.append(scriptString(list_->item(row)->text()));
    }
    if (items.empty()) { return; }
    owner_.operate(
        control_, [this, items](DialogSession& session) { return session.chooseSeveral(control_, items); },
        statement("select", words.join(' ')));
  }
  QListWidget* list_;
};

class ColumnsWidget : public ControlWidget {
 public:
  ColumnsWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    list_ = new QTreeWidget(parent);
    widget_ = target_ = list_;
    list_->setRootIsDecorated(false);
    list_->header()->setStretchLastSection(false);  // widths are what the user drags, not what the window leaves
    list_->setMinimumSize(240, 110);
    QStringList titles;
    for (const ListColumn& column : state<ColumnList>().columns) { titles.append(brevan::shown(column.title)); }
    list_->setHeaderLabels(titles);
    QObject::connect(list_, &QTreeWidget::itemSelectionChanged, list_, [this] {
      if (list_->currentItem() == nullptr) { return; }
      const std::string entry =
          itemTexts(this->control().state).at(static_cast<size_t>(list_->indexOfTopLevelItem(list_->currentItem())));
      owner_.operate(
          control_, [this, entry](DialogSession& session) { return session.choose(control_, entry); },
          statement("pick", scriptString(brevan::shown(entry))));
    });
    QObject::connect(list_->header(), &QHeaderView::sectionResized, list_, [this](int column, int, int size) {
      const std::string title = state<ColumnList>().columns.at(static_cast<size_t>(column)).title;
      owner_.operate(
          control_,
          [this, title, size](DialogSession& session) { return session.setColumnWidth(control_, title, size); },
          statement("width", scriptString(brevan::shown(title)) + ' ' + QString::number(size)));
    });
  }
  void show() override {
    const ColumnList& columns = state<ColumnList>();
    const QSignalBlocker silent(list_);
    const QSignalBlocker silentHeader(list_->header());
    list_->clear();
    for (const auto& row : columns.rows) {
      QStringList texts;
      for (const std::string& text : row) { texts.append(brevan::shown(text)); }
      list_->addTopLevelItem(new QTreeWidgetItem(texts));
    }
    for (size_t column = 0; column < columns.columns.size(); ++column) {
      list_->setColumnWidth(static_cast<int>(column), columns.columns[column].width);
    }
    if (columns.selected >= 0) { list_->setCurrentItem(list_->topLevelItem(columns.selected)); }
  }

 private:
  QTreeWidget* list_;
};

class BranchesWidget : public ControlWidget {
 public:
  BranchesWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    tree_ = new QTreeWidget(parent);
    widget_ = target_ = tree_;
    tree_->setHeaderHidden(true);
    tree_->setMinimumSize(200, 140);
    QObject::connect(tree_, &QTreeWidget::itemSelectionChanged, tree_, [this] {
      const QTreeWidgetItem* item = tree_->currentItem();
      if (item == nullptr) { return; }
      QStringList path;
      for (; item != nullptr; item = item->parent()) { path.prepend(item->text(0)); }
      const auto entry = hostText(path.join('/'));
      if (!entry) { return; }
      owner_.operate(
          control_, [this, entry](DialogSession& session) { return session.choose(control_, *entry); },
          statement("pick", scriptString(path.join('/'))));
    });
  }
  void show() override {
    const QSignalBlocker silent(tree_);
    tree_->clear();
    for (const TreeNode& root : state<Tree>().roots) { add(root, tree_->invisibleRootItem()); }
    QTreeWidgetItem* item = tree_->invisibleRootItem();
    for (const int index : state<Tree>().selected) { item = item == nullptr ? nullptr : item->child(index); }
    if (item != nullptr && item != tree_->invisibleRootItem()) { tree_->setCurrentItem(item); }
  }

 private:
  void add(const TreeNode& node, QTreeWidgetItem* parent) {
    auto* item = new QTreeWidgetItem(parent, {brevan::shown(node.caption)});
    for (const TreeNode& child : node.children) { add(child, item); }
    item->setExpanded(node.expanded);
  }
  QTreeWidget* tree_;
};

}  // namespace

std::unique_ptr<ControlWidget> makeListWidget(DialogOperator& owner, int control, QWidget* parent) {
  const State& state = owner.description().control(control).state;
  if (std::holds_alternative<DropDown>(state) || std::holds_alternative<PictureList>(state) ||
      std::holds_alternative<LineTypeList>(state)) {
    return std::make_unique<ComboWidget>(owner, control, parent);
  }
  if (std::holds_alternative<ListBox>(state)) { return std::make_unique<ListWidget>(owner, control, parent); }
  if (std::holds_alternative<ColumnList>(state)) { return std::make_unique<ColumnsWidget>(owner, control, parent); }
  if (std::holds_alternative<Tree>(state)) { return std::make_unique<BranchesWidget>(owner, control, parent); }
  return nullptr;
}

}  // namespace brevan
