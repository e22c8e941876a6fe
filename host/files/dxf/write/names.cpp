#include "host/files/dxf/write/names.h"

#include <algorithm>

namespace brevan {

namespace {

constexpr size_t kLongest = 240;  // of the 255 that DXF allows, room left for a number

constexpr std::string_view kForbidden = "<>/\\\":;?*|=`,";

std::string valid(std::string_view wanted) {
  std::string name(trimmed(wanted.substr(0, kLongest)));
  const auto forbidden = [](char character) {
    const auto code = static_cast<unsigned char>(character);
    return code < 0x20 || code == 0x7F || kForbidden.find(character) != std::string_view::npos;
  };
  std::replace_if(name.begin(), name.end(), forbidden, '_');
  return name.empty() ? "_" : name;
}

}  // namespace

std::string DxfNames::unique(std::string_view wanted) {
  std::string name = valid(wanted);
  int& count = taken_[name];
  if (count++ == 0) { return name; }
  for (;; ++count) {
    std::string numbered = name + "_" + std::to_string(count);
    if (taken_.emplace(numbered, 1).second) { return numbered; }
  }
}

}  // namespace brevan
