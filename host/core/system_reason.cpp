#include "host/core/system_reason.h"

#include <cstring>

namespace brevan {

std::string systemReason(int errorNumber) {
  const char* const text = ::strerrordesc_np(errorNumber);
  return text != nullptr ? text : "error " + std::to_string(errorNumber);
}

}  // namespace brevan
