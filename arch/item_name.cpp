#include "arch/item_name.h"

#include "frame/add_item_dialog.h"
#include "frame/messages.h"

namespace ardenix::arch {

std::optional<std::string> askNewName(const Services& services, CWnd* owner, std::string_view prompt) {
  while (auto name = askItemName(services, owner, prompt)) {
    if (!name->empty()) { return name; }
    warn(owner, "Invalid name! Please try again.");
  }
  return std::nullopt;
}

}  // namespace ardenix::arch
