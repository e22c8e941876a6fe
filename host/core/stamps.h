#pragma once

#include <sys/stat.h>

#include <string_view>

#include "host/core/safe_file.h"

namespace brevan {

FileStamp stampFrom(const struct stat& status);
// Why a thing that is no regular file is refused.
std::string_view irregularReason(const struct stat& status);

}  // namespace brevan
