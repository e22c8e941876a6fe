#include "frame/names.h"

#include "frame/host/core_services.h"
#include "frame/messages.h"

namespace ardenix {

namespace {

char upperCased(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool isNameCharacter(char c) {
  const char upper = upperCased(c);
  return (upper >= 'A' && upper <= 'Z') || (c >= '0' && c <= '9') || std::string_view("$_-|").find(c) < 4;
}

}  // namespace

int cleanName(std::string& name, bool upperCase) {
  name = name.substr(0, kNameLimit);
  coreTrimStr(name);
  int result = 0;
  for (char& c : name) {
    if (upperCase) { c = upperCased(c); }
    if (isNameCharacter(c)) { continue; }
    c = '_';
    result = -1;
  }
  if (!name.empty()) { return result; }
  name = "_";
  return -1;
}

std::string nameWithinLimit(std::string_view name, std::string_view kindWord, int maximum, CWnd* owner) {
  const size_t limit = static_cast<size_t>(maximum);
  if (name.size() > limit) {
    warn(owner, "The %s name you have entered is too long. It will be truncated to %d characters.", kindWord, maximum);
  }
  return std::string(name.substr(0, limit));
}

}  // namespace ardenix
