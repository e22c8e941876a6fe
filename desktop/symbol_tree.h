#pragma once

#include <QHash>
#include <QIcon>
#include <QStringList>
#include <QWidget>

#include "host/window/folder_tree.h"

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace brevan {

// The symbol library as a person sees it: folders that are read when they are opened, a picture beside each file in
// sight, a search over all names, and the person's favourites on top. A click or Return picks a file.
class SymbolTree : public QWidget {
  Q_OBJECT
 public:
  SymbolTree(FolderTree& tree, QWidget* parent);

  void setFavourites(const QStringList& favourites);
  [[nodiscard]] const QStringList& favourites() const { return favourites_; }

 signals:
  void picked(const QString& file);
  void favouritesChanged(const QStringList& favourites);

 private:
  void fill();
  void fillFolder(QTreeWidgetItem* item, const QString& folder);
  void fillFound(const QString& words);
  void addFile(QTreeWidgetItem* under, const QString& file, bool withFolder);
  void pickItem(const QTreeWidgetItem* item);
  void showMenu(const QPoint& at);
  void makeNextPicture();
  [[nodiscard]] QTreeWidgetItem* nextWithoutPicture() const;
  [[nodiscard]] QIcon pictureOf(const QString& file);

  FolderTree& tree_;
  QLineEdit* search_;
  QTreeWidget* items_;
  class QTimer* pictures_;
  QStringList favourites_;
  QHash<QString, QIcon> icons_;  // by path, time and size of the file
};

}  // namespace brevan
