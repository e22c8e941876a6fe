#include "frame/entry/module_state.h"

#include "frame/host/core_services.h"
#include "frame/version.h"

namespace ardenix {

namespace {

// Unloading goes down the rows.
constexpr void (*kUnloadOrder[])(ModuleState&) = {
    [](ModuleState& state) { state.mechanical.reset(); },    [](ModuleState& state) { state.architectural.reset(); },
    [](ModuleState& state) { state.symbolBrowser.reset(); }, [](ModuleState& state) { state.surveyTrace.reset(); },
    [](ModuleState& state) { state.surveySheet.reset(); },   [](ModuleState& state) { state.sectionalPlanJob.reset(); },
};

}  // namespace

void ModuleState::initialise(CMDIFrameWnd* mainFrame, COXShortcutBar* bar) {
  services.mainFrame = mainFrame;
  shortcutBar = bar;
  if (bar != nullptr) { symbolBrowser = std::make_unique<arch::SymbolBrowser>(*bar); }
  services.help = &help_;
  services.toolTips = coreGetDefaultInt("Global", "ToolTips", 1) != 0;
}

void ModuleState::unload() {
  for (const auto release : kUnloadOrder) { release(*this); }
}

const char* ModuleState::version() {
  if (version_.empty()) { version_ = moduleVersion(platform_); }
  return version_.c_str();
}

ModuleState& moduleState() {
  static ModuleState state;
  return state;
}

}  // namespace ardenix
