#include "frame/records.h"

#include <algorithm>
#include <array>

#include "frame/host/core_services.h"

namespace ardenix {

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
