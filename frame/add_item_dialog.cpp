#include "frame/add_item_dialog.h"

#include "frame/records.h"

namespace ardenix {

std::optional<std::string> askItemName(const Services& services, CWnd* owner, std::string_view prompt) {
  dialog::Dialog box("Ardenix - Add New Item");
  box.enableToolTips(services.toolTips);
  const dialog::TextHandle field =
      addText(box, {.caption = std::string(prompt), .toolTip = "The name under which the list shows the new item"});
  addOkCancel(box, 1);
  box.onOpen = [&field] { field.focus(); };
  if (!services.mainFrame->RunDialog(box, owner)) { return std::nullopt; }
  return asRecordName(field.text());
}

}  // namespace ardenix
