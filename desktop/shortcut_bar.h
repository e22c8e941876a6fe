#pragma once

#include <QToolBox>

#include "frame/host/main_frame.h"

namespace brevan {

// The host's side bar: a group for each feature of the module that asks for one.
class ShortcutBar : public QToolBox, public COXShortcutBar {
  Q_OBJECT
 public:
  explicit ShortcutBar(QWidget* parent) : QToolBox(parent) { setObjectName("shortcutBar"); }

  int InsertGroup(const char* caption) override;
  void SetGroupMargin(int group, int pixels) override;
  void ExpandGroup(int group) override { setCurrentIndex(group); }
  void RedrawBar() override { update(); }
  void SetFocus() override { setFocus(); }
};

}  // namespace brevan
