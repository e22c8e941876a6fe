#include "frame/remembered_path.h"

#include <array>

namespace ardenix {

std::string rememberedPath(const AllPaths& paths, std::string_view section, std::string_view key,
                           std::string_view fallback) {
  std::array<char, 260> path{};
  paths.settings->GetString(section, key, fallback, path.data(), static_cast<int>(path.size()));
  return path.data();
}

}  // namespace ardenix
