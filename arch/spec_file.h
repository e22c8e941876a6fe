#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/host/window.h"

namespace ardenix::arch {

// Stands for no file, or no folder, in the host's settings and in the setup dialog.
inline constexpr std::string_view kNoPath = "<none>";

// What the path of an architectural specification file holds, in this very spelling.
inline constexpr std::string_view kSpecFileName = "ArchSpecs.ini";

// The path that the host remembers, kNoPath where it remembers none; at most 259 characters.
std::string rememberedSpecFile();
void rememberSpecFile(std::string_view path);

// Whether a path is that of an existing specification file.
bool isSpecFile(const std::string& path);

// The file of that name in the data folder.
std::string defaultSpecFile();

// The specification file in use: the one remembered, else the default one, which is remembered from then
// on. Where there is neither, tells so and gives nothing.
std::optional<std::string> resolveSpecFile(CWnd* owner);

}  // namespace ardenix::arch
