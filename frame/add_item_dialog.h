#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/services.h"

namespace ardenix {

// Asks for the name of a new item. What was typed comes back with blanks for commas and without
// surrounding blanks; nothing when the user cancelled.
std::optional<std::string> askItemName(const Services& services, CWnd* owner, std::string_view prompt);

}  // namespace ardenix
