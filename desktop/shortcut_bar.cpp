#include "desktop/shortcut_bar.h"

#include <QVBoxLayout>

#include "desktop/symbol_tree.h"
#include "desktop/texts.h"

namespace brevan {

// The one child that a group takes is the tree that this bar made.
int ShortcutBar::InsertGroup(const char* caption, COXShellFolderTree& child) {
  SideBar::InsertGroup(caption, child);
  auto* page = new QWidget(this);
  auto* column = new QVBoxLayout(page);
  symbols_ = new SymbolTree(*tree(), page);
  symbols_->setFavourites(favourites_);
  column->addWidget(symbols_);
  connect(symbols_, &SymbolTree::picked, this, &ShortcutBar::picked);
  connect(symbols_, &SymbolTree::favouritesChanged, this, &ShortcutBar::favouritesChanged);
  return addItem(page, shown(groups().back()));
}

void ShortcutBar::SetGroupMargin(int group, int pixels) {
  QWidget* page = widget(group);
  if (page != nullptr) { page->layout()->setContentsMargins(pixels, pixels, pixels, pixels); }
}

void ShortcutBar::setFavourites(const QStringList& favourites) {
  favourites_ = favourites;
  if (symbols_ != nullptr) { symbols_->setFavourites(favourites); }
}

}  // namespace brevan
