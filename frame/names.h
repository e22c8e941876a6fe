#pragma once

#include <string>
#include <string_view>

#include "frame/host/window.h"

namespace ardenix {

// The longest name of a definition.
inline constexpr int kNameLimit = 31;

// Rewrites a name as groups and layers bear it: at most kNameLimit characters, trimmed, upper-cased if
// asked, "_" for every character but A-Z, a-z, 0-9, "$", "_", "-" and "|"; an empty name becomes "_".
// Returns -1 when a character was replaced or an empty name filled, else 0.
int cleanName(std::string& name, bool upperCase);

// The name as given, or its first `maximum` characters after a warning in which `kindWord` ("bolt")
// says what was named.
std::string nameWithinLimit(std::string_view name, std::string_view kindWord, int maximum, CWnd* owner);

}  // namespace ardenix
