#include "desktop/shortcut_bar.h"

#include <QVBoxLayout>

#include "desktop/texts.h"

namespace brevan {

int ShortcutBar::InsertGroup(const char* caption) {
  auto* page = new QWidget(this);
  new QVBoxLayout(page);
  return addItem(page, shown(caption));
}

void ShortcutBar::SetGroupMargin(int group, int pixels) {
  QWidget* page = widget(group);
  if (page != nullptr) { page->layout()->setContentsMargins(pixels, pixels, pixels, pixels); }
}

}  // namespace brevan
