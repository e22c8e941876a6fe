#include "mech/mech_toolset.h"

#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "mech/setup_dialog.h"

namespace ardenix::mech {

MechToolset::MechToolset(CCadWindow* view, const Services& services)
    : Toolset(view), services_(services), configuration_(GetAllPaths()) {
  loadRemembered();
}

void MechToolset::loadRemembered() {
  const std::string path = configuration_.rememberedFile(kNoFile);
  if (path.empty() || coreFileExist(path) == 0 || !configuration_.load(path)) { return setUpFirst(); }
  if (!configuration_.valid()) {
    warn(services_.mainFrame, "The specified Mechanical Ardenix configuration file does not appear to be valid!");
  }
}

void MechToolset::setUpFirst() {
  ErrorMessage(kConfigurationMissing, services_.mainFrame);
  runSetup();
  const std::string path = configuration_.rememberedFile("");
  if (coreFileExist(path) != 0 && !configuration_.loaded()) { configuration_.load(path); }
}

bool MechToolset::checkConfiguration() {
  if (configuration_.loaded()) { return true; }
  ErrorMessage(kConfigurationMissing, services_.mainFrame);
  runSetup();
  return configuration_.loaded();
}

void MechToolset::runSetup() { SetupDialog(services_, configuration_).run(); }

std::unique_ptr<MechToolset> makeMechToolset(CCadWindow* view, const Services& services) {
  return std::make_unique<MechToolset>(view, services);
}

void displaySetup(MechToolset& toolset) { toolset.runSetup(); }

}  // namespace ardenix::mech
