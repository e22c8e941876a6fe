#include "desktop/panels.h"

#include <QHeaderView>
#include <algorithm>

#include "desktop/texts.h"

namespace brevan {

namespace {

enum Column { kName, kVisible, kLocked, kColumns };
// A tree of more entries helps nobody, and takes long to make.
constexpr size_t kMostGroups = 20'000;
// After more changes than these the panel is built anew.
constexpr size_t kFewChanges = 1000;
enum Role { kGroup = Qt::UserRole, kCategory };

// What groups are sorted by within their category.
std::pair<QString, GroupId> keyOf(const QTreeWidgetItem& item) { return {item.text(0), item.data(0, kGroup).toInt()}; }

// The place of the first child that does not come before the key.
int placeIn(const QTreeWidgetItem& category, const std::pair<QString, GroupId>& key) {
  int low = 0;
  int high = category.childCount();
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (keyOf(*category.child(middle)) < key) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return low;
}

QString nameOf(const QTreeWidgetItem& category) { return category.data(0, kCategory).toString(); }

void showCount(QTreeWidgetItem& category) {
  const QString name = nameOf(category);
  category.setText(
      0, QString("%1  (%2)").arg(name.isEmpty() ? GroupsPanel::tr("(no category)") : name).arg(category.childCount()));
}

QTableWidgetItem* tick(bool on) {
  auto* item = new QTableWidgetItem;
  item->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  item->setCheckState(on ? Qt::Checked : Qt::Unchecked);
  return item;
}

}  // namespace

LayersPanel::LayersPanel(QWidget* parent) : QTableWidget(0, kColumns, parent) {
  setObjectName("layersPanel");
  setHorizontalHeaderLabels({tr("Layer"), tr("Shown"), tr("Locked")});
  horizontalHeader()->setSectionResizeMode(kName, QHeaderView::Stretch);
  for (const int column : {kVisible, kLocked}) {
    horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
  }
  verticalHeader()->hide();
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setToolTip(tr("A double click makes a layer the current one"));
  connect(this, &QTableWidget::itemChanged, this, &LayersPanel::edited);
  connect(this, &QTableWidget::cellDoubleClicked, this, [this](int row, int column) {
    if (column == kName) { emit currentAsked(layers_.at(static_cast<size_t>(row)).first); }
  });
}

void LayersPanel::show(const Drawing& drawing) {
  const QSignalBlocker silent(this);
  layers_.clear();
  for (int index = 0; index < drawing.layerCount(); ++index) {
    if (const Layer* layer = drawing.layer(index)) { layers_.emplace_back(index, *layer); }
  }
  setRowCount(static_cast<int>(layers_.size()));
  for (size_t row = 0; row < layers_.size(); ++row) {
    const auto& [index, layer] = layers_[row];
    auto* name = new QTableWidgetItem(shown(layer.name));
    QFont font = name->font();
    font.setBold(index == drawing.currentLayer());
    name->setFont(font);
    setItem(static_cast<int>(row), kName, name);
    setItem(static_cast<int>(row), kVisible, tick(layer.visible));
    setItem(static_cast<int>(row), kLocked, tick(layer.locked));
  }
}

void LayersPanel::edited(QTableWidgetItem* item) {
  auto [index, layer] = layers_.at(static_cast<size_t>(item->row()));
  const bool on = item->checkState() == Qt::Checked;
  if (item->column() == kVisible) { layer.visible = on; }
  if (item->column() == kLocked) { layer.locked = on; }
  emit layerChanged(index, layer);
}

GroupsPanel::GroupsPanel(QWidget* parent) : QTreeWidget(parent) {
  setObjectName("groupsPanel");
  setHeaderHidden(true);
  connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
    const int group = item->data(0, kGroup).toInt();
    if (group != 0) { emit groupPicked(group); }
  });
}

void GroupsPanel::show(const Drawing& drawing) {
  const auto changed = log_ == drawing.groupLog() ? log_->since(read_) : std::nullopt;
  log_ = drawing.groupLog();
  read_ = log_->end();
  if (!changed || changed->size() > kFewChanges) {
    showAll(drawing);
    return;
  }
  for (const GroupId id : *changed) { showGroup(drawing, id); }
}

void GroupsPanel::showAll(const Drawing& drawing) {
  std::map<QString, bool> expanded;
  for (const auto& [name, category] : categories_) { expanded[name] = category->isExpanded(); }
  clear();
  categories_.clear();
  items_.clear();
  std::map<QString, QList<QTreeWidgetItem*>> listed;
  drawing.forEachGroup([&](const Group& group) {
    if (items_.size() < kMostGroups) { listed[shown(group.parent)].append(newItem(group)); }
  });
  for (auto& [name, items] : listed) {
    std::sort(items.begin(), items.end(), [](const auto* a, const auto* b) { return keyOf(*a) < keyOf(*b); });
    QTreeWidgetItem& category = categoryNamed(name);
    category.addChildren(items);
    showCount(category);
    if (expanded.contains(name)) { category.setExpanded(expanded[name]); }
  }
}

void GroupsPanel::showGroup(const Drawing& drawing, GroupId id) {
  const bool there = id <= drawing.lastGroup() && !drawing.group(id).members.empty();
  if (const auto entry = items_.find(id); entry != items_.end()) {
    const QTreeWidgetItem& item = *entry->second;
    const bool holds = there && item.text(0) == shown(drawing.group(id).name) &&
                       nameOf(*item.parent()) == shown(drawing.group(id).parent);
    if (holds) { return; }
    removeItem(entry->second);
    items_.erase(entry);
  }
  if (!there || items_.size() >= kMostGroups) { return; }
  const Group& group = drawing.group(id);
  QTreeWidgetItem& category = categoryNamed(shown(group.parent));
  QTreeWidgetItem* item = newItem(group);
  category.insertChild(placeIn(category, keyOf(*item)), item);
  showCount(category);
}

QTreeWidgetItem* GroupsPanel::newItem(const Group& group) {
  auto* item = new QTreeWidgetItem({shown(group.name)});
  item->setData(0, kGroup, group.id);
  return items_[group.id] = item;
}

QTreeWidgetItem& GroupsPanel::categoryNamed(const QString& name) {
  const auto [entry, isNew] = categories_.try_emplace(name, nullptr);
  if (isNew) {
    entry->second = new QTreeWidgetItem;
    entry->second->setData(0, kCategory, name);
    insertTopLevelItem(static_cast<int>(std::distance(categories_.begin(), entry)), entry->second);
    entry->second->setExpanded(true);
  }
  return *entry->second;
}

void GroupsPanel::removeItem(QTreeWidgetItem* item) {
  QTreeWidgetItem& category = *item->parent();
  delete category.takeChild(placeIn(category, keyOf(*item)));
  if (category.childCount() > 0) {
    showCount(category);
  } else {
    categories_.erase(nameOf(category));
    delete &category;
  }
}

}  // namespace brevan
