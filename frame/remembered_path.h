#pragma once

#include <string>
#include <string_view>

#include "frame/host/ini.h"

namespace ardenix {

// The path that the host's settings hold, at most 259 characters; the fallback where they hold none.
std::string rememberedPath(const AllPaths& paths, std::string_view section, std::string_view key,
                           std::string_view fallback);

}  // namespace ardenix
