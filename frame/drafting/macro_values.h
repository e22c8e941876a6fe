#pragma once

#include <string>
#include <string_view>

#include "frame/host/cad_window.h"

// Macro variables as numbers and texts.
namespace ardenix {

// The value of a macro variable; 0, or "", for one that is not set. A whole number is the value cut.
double numberVariable(CCadWindow& view, std::string_view name);
int wholeVariable(CCadWindow& view, std::string_view name);
// At most 1,023 characters, as many as a prompt takes.
std::string textVariable(CCadWindow& view, std::string_view name);

}  // namespace ardenix
