#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "frame/host/ini.h"
#include "mech/definition_store.h"

namespace ardenix::mech {

// Stands for no file in the host's settings and in the setup dialog.
inline constexpr std::string_view kNoFile = "<none>";

inline constexpr std::string_view kConfigurationMissing =
    "Mechanical Ardenix configuration file cannot be found, or is incorrectly specified!";

// The mechanical configuration: its path in the host's settings and the file that is loaded, if any.
class Configuration {
 public:
  explicit Configuration(AllPaths* paths) : paths_(paths) {}

  // The path that the host remembers, at most 259 characters; the fallback where it remembers none.
  [[nodiscard]] std::string rememberedFile(std::string_view fallback) const;
  void rememberFile(std::string_view path);

  // Replaces what is loaded; false, and nothing loaded, for a file that cannot be read or is no text.
  bool load(std::string_view path);
  [[nodiscard]] bool loaded() const { return store_ != nullptr; }
  [[nodiscard]] DefinitionStore& store() const { return *store_; }
  // A mechanical configuration names its weld symbols, even if with an empty path.
  [[nodiscard]] bool valid() const;

 private:
  AllPaths* paths_;
  std::unique_ptr<DefinitionStore> store_;
};

}  // namespace ardenix::mech
