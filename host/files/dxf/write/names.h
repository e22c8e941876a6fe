#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "host/core/text_encoding.h"

namespace brevan {

// Names of a symbol table: DXF forbids some characters and counts names that differ in case alone as one.
class DxfNames {
 public:
  // A valid name that none before it had: forbidden characters become "_", a repeated name gets "_2",
  // "_3", ...
  std::string unique(std::string_view wanted);

 private:
  std::unordered_map<std::string, int, HashWithoutCase, EqualWithoutCase> taken_;
};

}  // namespace brevan
