#include "mech/record_fields.h"

namespace ardenix::mech {

std::string withStoredLineBreaks(std::string_view text) {
  std::string stored;
  for (const char c : text) { c == '\n' ? stored += kStoredLineBreak : stored += c; }
  return stored;
}

std::string withLineBreaks(std::string_view stored) {
  std::string text(stored);
  for (size_t at = 0; (at = text.find(kStoredLineBreak, at)) != std::string::npos; ++at) {
    text.replace(at, kStoredLineBreak.size(), "\n");
  }
  return text;
}

}  // namespace ardenix::mech
