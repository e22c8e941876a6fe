#include "frame/records.h"

#include <array>

#include "frame/host/core_services.h"

namespace ardenix {

std::string recordName(std::string_view record) {
  std::array<char, 256> name{};
  coreGetField(record, "", name.data(), static_cast<int>(name.size()), 1, kFieldSeparator);
  return name.data();
}

}  // namespace ardenix
