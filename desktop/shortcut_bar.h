#pragma once

#include <QToolBox>

#include "host/window/side_bar.h"

namespace brevan {

class SymbolTree;

// The host's side bar: a group for each feature of the module that asks for one.
class ShortcutBar : public QToolBox, public SideBar {
  Q_OBJECT
 public:
  ShortcutBar(FileServices& files, QWidget* parent) : QToolBox(parent), SideBar(files) { setObjectName("shortcutBar"); }

  int InsertGroup(const char* caption, COXShellFolderTree& child) override;
  void SetGroupMargin(int group, int pixels) override;
  void ExpandGroup(int group) override { setCurrentIndex(group); }
  void RedrawBar() override { update(); }
  void SetFocus() override { setFocus(); }

  void setFavourites(const QStringList& favourites);

 signals:
  // A file of the symbol library was picked.
  void picked(const QString& file);
  void favouritesChanged(const QStringList& favourites);

 private:
  QStringList favourites_;
  SymbolTree* symbols_ = nullptr;
};

}  // namespace brevan
