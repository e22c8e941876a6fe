#include "frame/file_paths.h"

#include "frame/host/core_services.h"

namespace ardenix {

namespace {

constexpr std::string_view kSeparators = "/\\";

bool hasRoot(std::string_view path) {
  return path.find_first_of(kSeparators) == 0 || (path.size() > 1 && path[1] == ':');
}

}  // namespace

std::string pathNamedIn(std::string_view namingFile, std::string_view path) {
  const size_t name = namingFile.find_last_of(kSeparators);
  if (path.empty() || hasRoot(path) || name == std::string_view::npos) { return std::string(path); }
  std::string beside = std::string(namingFile.substr(0, name + 1)).append(path);
  return coreFileExist(beside) != 0 ? beside : std::string(path);
}

}  // namespace ardenix
