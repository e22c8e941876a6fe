#include "arch/spec_file.h"

#include "frame/host/core_services.h"
#include "frame/host/ini.h"
#include "frame/remembered_path.h"

namespace ardenix::arch {

namespace {

constexpr std::string_view kArchSettings = "ArchitecturalTools";
constexpr std::string_view kSpecFileKey = "SpecFile";

}  // namespace

std::string rememberedSpecFile() { return rememberedPath(*GetAllPaths(), kArchSettings, kSpecFileKey, kNoPath); }

void rememberSpecFile(std::string_view path) { GetAllPaths()->settings->SetString(kArchSettings, kSpecFileKey, path); }

bool isSpecFile(const std::string& path) {
  return path.find(kSpecFileName) != std::string::npos && coreFileExist(path) != 0;
}

std::string defaultSpecFile() { return coreGetDefaultPath().append(kSpecFileName); }

std::optional<std::string> resolveSpecFile(CWnd* owner) {
  if (std::string path = rememberedSpecFile(); isSpecFile(path)) { return path; }
  if (std::string path = defaultSpecFile(); isSpecFile(path)) {
    rememberSpecFile(path);
    return path;
  }
  ErrorMessage("No architectural specification file found", owner);
  return std::nullopt;
}

}  // namespace ardenix::arch
