#include "mech/configuration.h"

#include "frame/host/core_services.h"
#include "frame/remembered_path.h"

namespace ardenix::mech {

namespace {

constexpr std::string_view kSettingsSection = "MechanicalTools";
constexpr std::string_view kSettingsKey = "SpecFile";

}  // namespace

std::string Configuration::rememberedFile(std::string_view fallback) const {
  return rememberedPath(*paths_, kSettingsSection, kSettingsKey, fallback);
}

void Configuration::rememberFile(std::string_view path) {
  paths_->settings->SetString(kSettingsSection, kSettingsKey, path);
}

bool Configuration::load(std::string_view path) {
  store_.reset();
  try {
    store_ = std::make_unique<DefinitionStore>(path);
  } catch (const HostFailure&) {
    return false;  // the callers tell it in words of their own
  }
  return true;
}

bool Configuration::valid() const {
  constexpr std::string_view kBad = "bad";
  return loaded() && store_->file().ReadString("Setup", "WeldSymbols", kBad) != kBad;
}

}  // namespace ardenix::mech
