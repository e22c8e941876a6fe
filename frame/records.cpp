#include "frame/records.h"

#include <algorithm>
#include <array>

#include "frame/host/core_services.h"

namespace ardenix {

namespace {

constexpr std::string_view kHiddenComma = "_COMMA_";

std::string replaced(std::string_view text, std::string_view what, std::string_view by) {
  std::string result;
  for (size_t at = 0; at < text.size();) {
    const bool found = text.substr(at).starts_with(what);
    result += found ? by : text.substr(at, 1);
    at += found ? what.size() : 1;
  }
  return result;
}

}  // namespace

std::string commasHidden(std::string_view text) {
  return replaced(text, std::string_view(&kFieldSeparator, 1), kHiddenComma);
}
std::string commasRestored(std::string_view text) {
  return replaced(text, kHiddenComma, std::string_view(&kFieldSeparator, 1));
}

std::string wholeField(std::string_view record, int n, char separator) {
  std::string field(record.size() + 1, '\0');
  const int length = coreGetField(record, "", field.data(), static_cast<int>(field.size()), n, separator);
  field.resize(static_cast<size_t>(length));
  return field;
}

std::string textField(std::string_view record, int n, std::string_view fallback, char separator) {
  std::array<char, 256> buffer{};
  coreGetField(record, fallback, buffer.data(), static_cast<int>(buffer.size()), n, separator);
  return buffer.data();
}

bool flagField(std::string_view record, int n, bool fallback, char separator) {
  return coreGetFieldInt(record, fallback ? 1 : 0, n, separator) != 0;
}

std::string recordName(std::string_view record) { return textField(record, 1); }

std::string asRecordName(std::string_view typed) {
  std::string name(typed);
  std::ranges::replace(name, kFieldSeparator, ' ');
  coreTrimStr(name);
  return name;
}

}  // namespace ardenix
