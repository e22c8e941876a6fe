#include "mech/configuration.h"

#include <array>

namespace ardenix {

namespace {

constexpr std::string_view kSettingsSection = "MechanicalTools";
constexpr std::string_view kSettingsKey = "SpecFile";
constexpr size_t kPathBuffer = 260;

}  // namespace

std::string Configuration::rememberedFile(std::string_view fallback) const {
  std::array<char, kPathBuffer> path{};
  paths_->settings->GetString(kSettingsSection, kSettingsKey, fallback, path.data(), static_cast<int>(path.size()));
  return path.data();
}

void Configuration::rememberFile(std::string_view path) {
  paths_->settings->SetString(kSettingsSection, kSettingsKey, path);
}

void Configuration::load(std::string_view path) { store_ = std::make_unique<DefinitionStore>(path); }

bool Configuration::valid() const {
  constexpr std::string_view kBad = "bad";
  return loaded() && store_->file().ReadString("Setup", "WeldSymbols", kBad) != kBad;
}

}  // namespace ardenix
