#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "frame/platform.h"

namespace ardenix {

// The value of one path of a version resource; nothing where it is missing. A resource that was cut or
// holds a lying length has no value there.
std::optional<std::string_view> versionValue(std::span<const char> resource, std::string_view path);

// The module's own version, "6.40 (Build 16)"; "Unknown" where its file has no version resource.
std::string moduleVersion(Platform& platform);

}  // namespace ardenix
