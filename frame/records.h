#pragma once

#include <string>
#include <string_view>

namespace ardenix {

// A record is one INI value of fields with this between them; field 1 is its name.
inline constexpr char kFieldSeparator = ',';

// Field 1 of a record.
std::string recordName(std::string_view record);

}  // namespace ardenix
