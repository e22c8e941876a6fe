#pragma once

#include <string>
#include <string_view>

// The text with every LF written as the given line end.
inline std::string withLineEnds(std::string_view text, std::string_view lineEnd) {
  std::string out;
  for (const char c : text) { c == '\n' ? out.append(lineEnd) : out.append(1, c); }
  return out;
}
