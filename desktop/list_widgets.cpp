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
#include "host/window/control_kinds.h"

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
    QObject::connect(combo_, &QComboBox::activated, combo_,
                     [this](int item) { operate(Verb::kPick, {entries().at(static_cast<size_t>(item))}); });
    const auto* list = std::get_if<DropDown>(&this->control().state);
    if (list == nullptr || !list->editable) { return; }
    combo_->setEditable(true);
    combo_->setInsertPolicy(QComboBox::NoInsert);
    combo_->setCompleter(nullptr);
    QObject::connect(combo_->lineEdit(), &QLineEdit::textEdited, combo_, [this](const QString& text) {
      const auto taken = hostText(text);
      if (taken) { operate(Verb::kKeyed, {*taken}); }
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
    if (pictures != nullptr) { combo_->setMinimumWidth(combo_->sizeHint().width()); }  // else names are cut
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
    if (box.items != shownItems_) {
      list_->clear();
      for (const std::string& item : box.items) { list_->addItem(brevan::shown(item)); }
      shownItems_ = box.items;
    }
    for (size_t item = 0; item < box.items.size(); ++item) {
      QListWidgetItem* row = list_->item(static_cast<int>(item));
      row->setSelected(item < box.selected.size() && box.selected[item]);
      if (row->isSelected()) { list_->setCurrentItem(row, QItemSelectionModel::NoUpdate); }
    }
  }

 private:
  void choose() {
    std::vector<std::string> items;
    for (int row = 0; row < list_->count(); ++row) {
      if (!list_->item(row)->isSelected()) { continue; }
      items.push_back(state<ListBox>().items.at(static_cast<size_t>(row)));
    }
    if (!items.empty()) { operate(Verb::kSelect, std::move(items)); }
  }
  QListWidget* list_;
  std::vector<std::string> shownItems_;
};

class ColumnsWidget : public ControlWidget {
 public:
  ColumnsWidget(DialogOperator& owner, int control, QWidget* parent) : ControlWidget(owner, control) {
    list_ = new QTreeWidget(parent);
    widget_ = target_ = list_;
    list_->setRootIsDecorated(false);
    list_->header()->setStretchLastSection(false);  // widths are what the user drags, not what the window leaves
    list_->setMinimumSize(240, 110);
    QObject::connect(list_, &QTreeWidget::itemSelectionChanged, list_, [this] {
      if (list_->currentItem() == nullptr) { return; }
      operate(Verb::kClick, {}, list_->indexOfTopLevelItem(list_->currentItem()) + 1);  // rows may be alike
    });
    QObject::connect(list_->header(), &QHeaderView::sectionResized, list_, [this](int column, int, int size) {
      operate(Verb::kWidth, {addressOf(state<ColumnList>().columns.at(static_cast<size_t>(column)))}, size);
    });
  }
  void show() override {
    const ColumnList& columns = state<ColumnList>();
    const QSignalBlocker silent(list_);
    const QSignalBlocker silentHeader(list_->header());
    QStringList titles;
    for (const ListColumn& column : columns.columns) { titles.append(brevan::shown(column.title)); }
    if (titles != shownTitles_) {
      list_->setColumnCount(static_cast<int>(titles.size()));
      list_->setHeaderLabels(titles);
      shownTitles_ = titles;
    }
    showRows(columns.rows);
    for (size_t column = 0; column < columns.columns.size(); ++column) {
      list_->setColumnWidth(static_cast<int>(column), columns.columns[column].width);
    }
    if (columns.selected >= 0) { list_->setCurrentItem(list_->topLevelItem(columns.selected)); }
  }

 private:
  using Rows = std::vector<std::vector<std::string>>;
  void showRows(const Rows& rows) {
    while (list_->topLevelItemCount() > static_cast<int>(rows.size())) {
      delete list_->takeTopLevelItem(list_->topLevelItemCount() - 1);
    }
    shownRows_.resize(std::min(shownRows_.size(), rows.size()));
    QList<QTreeWidgetItem*> added;
    for (size_t row = 0; row < rows.size(); ++row) {
      if (row < shownRows_.size() && shownRows_[row] == rows[row]) { continue; }
      QTreeWidgetItem* item = row < shownRows_.size() ? list_->topLevelItem(static_cast<int>(row))
                                                      : added.emplace_back(new QTreeWidgetItem);
      for (size_t column = 0; column < rows[row].size(); ++column) {
        item->setText(static_cast<int>(column), brevan::shown(rows[row][column]));
      }
    }
    list_->addTopLevelItems(added);
    shownRows_ = rows;
  }
  QTreeWidget* list_;
  QStringList shownTitles_;
  Rows shownRows_;
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
      if (const auto entry = hostText(path.join('/'))) { operate(Verb::kPick, {*entry}); }
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

MadeWidget makeWidget(const DropDown&, const WidgetPlace& place) {
  return std::make_unique<ComboWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const PictureList&, const WidgetPlace& place) {
  return std::make_unique<ComboWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const LineTypeList&, const WidgetPlace& place) {
  return std::make_unique<ComboWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const ListBox&, const WidgetPlace& place) {
  return std::make_unique<ListWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const ColumnList&, const WidgetPlace& place) {
  return std::make_unique<ColumnsWidget>(place.owner, place.control, place.parent);
}
MadeWidget makeWidget(const Tree&, const WidgetPlace& place) {
  return std::make_unique<BranchesWidget>(place.owner, place.control, place.parent);
}

}  // namespace brevan
