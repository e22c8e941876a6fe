#pragma once

#include <cstdint>
#include <string_view>

namespace ardenix {

// The name under which the module knows its own file, and the section that holds its version resource.
inline constexpr std::string_view kModuleFileName = "Ardenix.dll";
#define ARDENIX_VERSION_SECTION ".version_resource"
inline constexpr std::string_view kVersionSection = ARDENIX_VERSION_SECTION;

// A version resource is a row of these entries. Both texts are closed with NUL unless they fill their field.
struct VersionEntry {
  char path[56];
  uint32_t length;  // of the value, in bytes
  char value[68];
};

// The value of the translation entry: pairs of these.
struct Translation {
  uint16_t language;
  uint16_t codePage;
};

}  // namespace ardenix
