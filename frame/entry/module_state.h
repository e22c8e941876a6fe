#pragma once

#include <memory>
#include <string>

#include "arch/arch_toolset.h"
#include "frame/help.h"
#include "frame/host/main_frame.h"
#include "frame/platform.h"
#include "frame/services.h"
#include "frame/toolset.h"
#include "mech/mech_toolset.h"

namespace ardenix {

// Everything the module keeps between calls; one instance, made when the library is loaded. Unloading it
// deletes the toolsets in the order of kUnloadOrder.
class ModuleState {
 public:
  ModuleState() = default;
  ModuleState(const ModuleState&) = delete;
  ModuleState& operator=(const ModuleState&) = delete;
  ~ModuleState() { unload(); }

  void initialise(CMDIFrameWnd* mainFrame, COXShortcutBar* shortcutBar);
  void unload();
  // Stays valid until unload.
  const char* version();

  Services services;
  COXShortcutBar* shortcutBar = nullptr;
  CCadWindow* currentView = nullptr;

  std::unique_ptr<mech::MechToolset> mechanical;
  std::unique_ptr<arch::ArchToolset> architectural;
  std::unique_ptr<arch::SymbolBrowser> symbolBrowser;  // from the start
  std::unique_ptr<Toolset> surveyTrace;
  std::unique_ptr<Toolset> surveySheet;
  std::unique_ptr<Toolset> sectionalPlanJob;

 private:
  SystemPlatform platform_;
  Help help_{platform_};
  std::string version_;
};

ModuleState& moduleState();

}  // namespace ardenix
