#pragma once

#include <QTableWidget>
#include <QTreeWidget>
#include <map>
#include <memory>
#include <unordered_map>

#include "host/window/drawing_window.h"

namespace brevan {

// The layers of a drawing: shown, locked, current.
class LayersPanel : public QTableWidget {
  Q_OBJECT
 public:
  explicit LayersPanel(QWidget* parent);
  void show(const Drawing& drawing);

 signals:
  void layerChanged(int index, const brevan::Layer& layer);
  void currentAsked(int index);

 private:
  void edited(QTableWidgetItem* item);
  std::vector<std::pair<int, Layer>> layers_;  // as shown
};

// The parts of a drawing by category and name; a click finds and selects one.
class GroupsPanel : public QTreeWidget {
  Q_OBJECT
 public:
  explicit GroupsPanel(QWidget* parent);
  // Costs what has changed where this drawing was the one shown before.
  void show(const Drawing& drawing);

 signals:
  void groupPicked(brevan::GroupId group);

 private:
  void showAll(const Drawing& drawing);
  void showGroup(const Drawing& drawing, GroupId id);
  QTreeWidgetItem* newItem(const Group& group);
  QTreeWidgetItem& categoryNamed(const QString& name);
  void removeItem(QTreeWidgetItem* item);

  std::shared_ptr<const GroupLog> log_;  // of the drawing shown
  uint64_t read_ = 0;                    // up to where in it
  std::map<QString, QTreeWidgetItem*> categories_;
  std::unordered_map<GroupId, QTreeWidgetItem*> items_;
};

}  // namespace brevan
