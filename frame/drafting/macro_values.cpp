#include "frame/drafting/macro_values.h"

#include <algorithm>
#include <array>
#include <limits>

#include "frame/host/core_services.h"

namespace ardenix {

double numberVariable(CCadWindow& view, std::string_view name) {
  double value = 0.0;
  view.gsGetMacVar(name, value);
  return value;
}

int wholeVariable(CCadWindow& view, std::string_view name) {
  constexpr double kLargest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(numberVariable(view, name), -kLargest, kLargest));
}

std::string textVariable(CCadWindow& view, std::string_view name) {
  std::array<char, 1024> buffer{};
  view.gsGetMacStrVar(name, buffer.data(), static_cast<int>(buffer.size()));
  return buffer.data();
}

std::string textField(std::string_view record, int n, std::string_view fallback, char separator) {
  std::array<char, 256> buffer{};
  coreGetField(record, fallback, buffer.data(), static_cast<int>(buffer.size()), n, separator);
  return buffer.data();
}

bool flagField(std::string_view record, int n, bool fallback, char separator) {
  return coreGetFieldInt(record, fallback ? 1 : 0, n, separator) != 0;
}

}  // namespace ardenix
