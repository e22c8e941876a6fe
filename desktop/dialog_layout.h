#pragma once

#include <memory>
#include <vector>

#include "desktop/control_widgets.h"

class QBoxLayout;
class QDialog;
class QLabel;

namespace brevan {

// What a dialog's description became, as the description counts it.
struct DialogWidgets {
  std::vector<std::unique_ptr<ControlWidget>> controls;  // null for the menu bar
  std::vector<QLabel*> labels;                           // before fields; null where there is none
  std::vector<QWidget*> groups;
};

// Lays the owner's description out in the window, from the top of a column: groups in grids, captions before fields,
// buttons in a row. Widgets that take the focus carry the property "control" and tell the window's event filter.
DialogWidgets layDialog(DialogOperator& owner, QDialog& window, QBoxLayout& column);

}  // namespace brevan
