#pragma once

#include <string>
#include <string_view>

#include "frame/host/cad_window.h"

namespace ardenix {

// Opens a new group, named prefix + next free number under the parent, for what is drawn next. Clears the
// workspace. Returns the group's name.
std::string startNumberedGroup(CCadWindow& view, std::string_view parent, std::string_view prefix);

}  // namespace ardenix
