#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/host/api.h"

// The host as the platform's help viewer: a module looks its library up by the registered key and calls this
// export of it. Returns null when the page could not be shown, else the viewer.
// NOLINTNEXTLINE(readability-identifier-naming): the platform's name
extern "C" BREVAN_API void* HtmlHelpA(void* window, const char* file, unsigned command, uintptr_t data);

namespace brevan {

// The library registered under the key of the help viewer: this one, where its user has a viewer; else "".
std::string helpViewerServer(std::string_view key);

}  // namespace brevan
