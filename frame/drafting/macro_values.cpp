#include "frame/drafting/macro_values.h"

#include <algorithm>
#include <array>
#include <limits>

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

}  // namespace ardenix
