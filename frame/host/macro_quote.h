#pragma once

#include <string>
#include <string_view>

// A text as one quoted argument of a macro command: a quotation mark inside is doubled, so that no text
// can end its quotes. Backslashes stay single: paths are sent as they are.
inline std::string quotedForMacro(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') { quoted += c; }
    quoted += c;
  }
  return quoted += '"';
}
