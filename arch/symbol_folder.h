#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "arch/arch_toolset.h"

namespace ardenix::arch {

inline constexpr std::string_view kSymbolSection = "SYMBOL";

// The folder of the symbol files, as the specification file names it; "" where it names none.
std::string rememberedSymbolFolder(const ArchSpecStore& store);
void rememberSymbolFolder(ArchSpecStore& store, std::string_view folder);

bool folderExists(const std::string& path);

// The folder used where the file names none: "Symbols" in the data folder, or above the user's own folder
// where the data folder lies below one ("USERS").
std::string defaultSymbolFolder();

// The symbol folder in use. Where there is none yet, takes the default one and notes it; where that is
// missing, too, has the user choose in the Architectural Setup dialog. Nothing when the user cancels.
std::optional<std::string> resolveSymbolFolder(ArchToolset& toolset);

}  // namespace ardenix::arch
