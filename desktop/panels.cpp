#include "desktop/panels.h"

#include <QHeaderView>
#include <map>

#include "desktop/texts.h"

namespace brevan {

namespace {

enum Column { kName, kVisible, kLocked, kColumns };
// A tree of more entries helps nobody and costs the panel its swiftness.
constexpr int kMostGroups = 20'000;

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
    const int group = item->data(0, Qt::UserRole).toInt();
    if (group != 0) { emit groupPicked(group); }
  });
}

void GroupsPanel::show(const Drawing& drawing) {
  std::map<QString, bool> expanded;
  for (int row = 0; row < topLevelItemCount(); ++row) {
    expanded[topLevelItem(row)->data(0, Qt::UserRole + 1).toString()] = topLevelItem(row)->isExpanded();
  }
  clear();
  std::map<QString, QTreeWidgetItem*> parents;
  int count = 0;
  drawing.forEachGroup([&](const Group& group) {
    if (++count > kMostGroups) { return; }
    const QString parentName = shown(group.parent);
    QTreeWidgetItem*& parent = parents[parentName];
    if (parent == nullptr) {
      parent = new QTreeWidgetItem(this, {parentName.isEmpty() ? tr("(no category)") : parentName});
      parent->setData(0, Qt::UserRole + 1, parentName);
    }
    auto* item = new QTreeWidgetItem(parent, {shown(group.name)});
    item->setData(0, Qt::UserRole, group.id);
  });
  for (const auto& [name, item] : parents) {
    item->setExpanded(expanded.contains(name) ? expanded[name] : true);
    item->setText(0, item->text(0) + QString("  (%1)").arg(item->childCount()));
  }
  sortItems(0, Qt::AscendingOrder);
}

}  // namespace brevan
