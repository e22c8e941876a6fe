#include "frame/platform.h"

#include <dlfcn.h>

#include <algorithm>

#include "frame/elf_section.h"
#include "frame/host/core_services.h"
#include "frame/version_resource.h"

namespace ardenix {

namespace {

// Shared libraries export by name only; these are the names behind the numbers that the module asks for.
struct NumberedExport {
  int number;
  const char* name;
};
constexpr NumberedExport kNumberedExports[] = {{14, "HtmlHelpA"}};

std::string versionResource(std::string_view file) {
  Dl_info self{};
  if (file != kModuleFileName || dladdr(&kNumberedExports, &self) == 0 || self.dli_fname == nullptr) { return {}; }
  return elfSection(self.dli_fname, kVersionSection);
}

}  // namespace

std::string SystemPlatform::registeredServer(std::string_view key) { return coreRegisteredServer(key); }

void* SystemPlatform::loadLibrary(const std::string& name) { return dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL); }

void* SystemPlatform::exportNumber(void* library, int number) {
  const auto* row = std::ranges::find(kNumberedExports, number, &NumberedExport::number);
  return row != std::end(kNumberedExports) ? dlsym(library, row->name) : nullptr;
}

size_t SystemPlatform::versionResourceSize(std::string_view file) { return versionResource(file).size(); }

bool SystemPlatform::readVersionResource(std::string_view file, std::span<char> buffer) {
  const std::string content = versionResource(file);
  if (content.size() > buffer.size()) { return false; }
  std::ranges::copy(content, buffer.begin());
  return true;
}

}  // namespace ardenix
