#pragma once

#include <string>
#include <string_view>

namespace ardenix {

// The bytes of a named section of a 64-bit ELF file of this machine's byte order; "" where the file
// cannot be read, is no such file or has no such section. Offsets and sizes are taken only where the
// file really holds them.
std::string elfSection(const std::string& path, std::string_view section);

}  // namespace ardenix
