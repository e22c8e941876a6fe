#pragma once

#include <QTableWidget>
#include <QTreeWidget>
#include <functional>

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
  void show(const Drawing& drawing);

 signals:
  void groupPicked(brevan::GroupId group);
};

}  // namespace brevan
