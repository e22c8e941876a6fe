#pragma once

#include <string>
#include <string_view>

#include "frame/host/ini.h"

namespace ardenix {

// A record is one INI value of fields with this between them; field 1 is its name.
inline constexpr char kFieldSeparator = ',';

// Field 1 of a record.
std::string recordName(std::string_view record);

// Frees the key of a numbered record, such as "Bolt3": the record there and those that follow it without a gap move
// down a number. A list whose numbering had a gap can have records right behind its end, which a new one must not
// overwrite.
void makeRoomForRecord(TINIFile& file, std::string_view section, std::string_view keyPrefix, int number);

}  // namespace ardenix
