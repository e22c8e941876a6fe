#include "frame/version.h"

#include <cstring>
#include <vector>

#include "frame/host/number_text.h"
#include "frame/version_resource.h"

namespace ardenix {

namespace {

constexpr std::string_view kUnknown = "Unknown";
// Version resources may be read with a few bytes more than their size says.
constexpr size_t kSpareBytes = 10;

std::string fileVersionPath(std::string_view translations) {
  Translation first{};
  std::memcpy(&first, translations.data(), sizeof(first));
  return numberText::format("\\StringFileInfo\\%04x%04x\\", int{first.language}, int{first.codePage}) + "FileVersion";
}

}  // namespace

std::optional<std::string_view> versionValue(std::span<const char> resource, std::string_view path) {
  for (; resource.size() >= sizeof(VersionEntry); resource = resource.subspan(sizeof(VersionEntry))) {
    VersionEntry entry;
    std::memcpy(&entry, resource.data(), sizeof(entry));
    const std::string_view entryPath(entry.path, strnlen(entry.path, sizeof(entry.path)));
    if (entryPath != path) { continue; }
    if (entry.length > sizeof(entry.value)) { return std::nullopt; }
    return std::string_view(resource.data() + offsetof(VersionEntry, value), entry.length);
  }
  return std::nullopt;
}

std::string moduleVersion(Platform& platform) {
  const size_t size = platform.versionResourceSize(kModuleFileName);
  if (size == 0) { return std::string(kUnknown); }
  std::vector<char> resource(size + kSpareBytes);
  if (!platform.readVersionResource(kModuleFileName, resource)) { return std::string(kUnknown); }
  const auto translations = versionValue(resource, "\\VarFileInfo\\Translation");
  if (!translations || translations->size() < sizeof(Translation)) { return std::string(kUnknown); }
  return std::string(versionValue(resource, fileVersionPath(*translations)).value_or(kUnknown));
}

}  // namespace ardenix
