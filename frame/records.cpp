#include "frame/records.h"

#include <array>

#include "frame/host/core_services.h"

namespace ardenix {

std::string recordName(std::string_view record) {
  std::array<char, 256> name{};
  coreGetField(record, "", name.data(), static_cast<int>(name.size()), 1, kFieldSeparator);
  return name.data();
}

void makeRoomForRecord(TINIFile& file, std::string_view section, std::string_view keyPrefix, int number) {
  const auto key = [keyPrefix](int n) { return std::string(keyPrefix) + std::to_string(n); };
  int gap = number;
  while (!file.ReadString(section, key(gap), "").empty()) { ++gap; }
  for (; gap > number; --gap) { file.WriteString(section, key(gap), file.ReadString(section, key(gap - 1), "")); }
}

}  // namespace ardenix
