#pragma once

#include <string>

namespace brevan {

// The reason of a system call's failure, in English whatever the locale.
std::string systemReason(int errorNumber);

}  // namespace brevan
