#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/services.h"

namespace ardenix::arch {

// Asks for the name of a new record until one is given; nothing when the user cancelled. A name holds no
// comma, the separator of fields.
std::optional<std::string> askNewName(const Services& services, CWnd* owner, std::string_view prompt);

}  // namespace ardenix::arch
