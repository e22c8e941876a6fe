#pragma once

#include <string>

#include "host/core/installation.h"

namespace brevan {

// Every command of the module, a line each: name, family and menu caption.
std::string commandList(const Places& places);

// The dialogs of a command: it is run on a copy of its files by a user who looks at each dialog, opens what
// its buttons open, and cancels. Every control with address, kind, range and tool tip, UTF-8. Throws
// HostFailure for a name that is no command.
std::string commandDescription(const std::string& command, const Places& places);

}  // namespace brevan
