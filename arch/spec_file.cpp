#include "arch/spec_file.h"

#include <array>

#include "frame/host/core_services.h"
#include "frame/host/ini.h"

namespace ardenix {

namespace {

constexpr std::string_view kSettingsSection = "ArchitecturalTools";
constexpr std::string_view kSettingsKey = "SpecFile";
constexpr size_t kPathBuffer = 260;

}  // namespace

std::string rememberedSpecFile() {
  std::array<char, kPathBuffer> path{};
  GetAllPaths()->settings->GetString(kSettingsSection, kSettingsKey, kNoPath, path.data(),
                                     static_cast<int>(path.size()));
  return path.data();
}

void rememberSpecFile(std::string_view path) {
  GetAllPaths()->settings->SetString(kSettingsSection, kSettingsKey, path);
}

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

}  // namespace ardenix
