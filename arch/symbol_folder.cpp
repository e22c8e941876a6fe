#include "arch/symbol_folder.h"

#include "arch/arch_setup_dialog.h"
#include "frame/host/core_services.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kSymbolKey = "SymbolPath";

constexpr std::string_view kSymbolsNotFound =
    "Symbol file not found, please set file path, else press cancel in next dialog to exit this function";

}  // namespace

std::string rememberedSymbolFolder(const ArchSpecStore& store) {
  return store.readString(kSymbolSection, kSymbolKey, "");
}

void rememberSymbolFolder(ArchSpecStore& store, std::string_view folder) {
  store.writeString(kSymbolSection, kSymbolKey, folder);
  store.flush();
}

bool folderExists(const std::string& path) { return !path.empty() && coreFolderExist(path) != 0; }

std::string defaultSymbolFolder() {
  const std::string data = coreGetDefaultPath();
  return data.substr(0, data.find("USERS")).append("Symbols");
}

std::optional<std::string> resolveSymbolFolder(ArchToolset& toolset) {
  std::string folder = rememberedSymbolFolder(toolset.store());
  if (folderExists(folder)) { return folder; }
  folder = defaultSymbolFolder();
  while (!folderExists(folder)) {
    ErrorMessage(kSymbolsNotFound, toolset.services().mainFrame);
    if (!ArchSetupDialog(toolset).run()) { return std::nullopt; }
    folder = rememberedSymbolFolder(toolset.store());
  }
  rememberSymbolFolder(toolset.store(), folder);
  return folder;
}

}  // namespace ardenix::arch
