#pragma once

#include <memory>

#include "frame/services.h"
#include "frame/toolset.h"
#include "mech/configuration.h"
#include "mech/tolerance_frame.h"

namespace ardenix::mech {

// What the mechanical commands of one view run in: the configuration file, read once for all of them.
class MechToolset : public Toolset {
 public:
  // Loads the configuration file that the host remembers. Where that file is missing, says so and shows the
  // setup dialog.
  MechToolset(CCadWindow* view, const Services& services);

  [[nodiscard]] const Services& services() const { return services_; }
  [[nodiscard]] Configuration& configuration() { return configuration_; }

  // The tolerance frame drawn last, which the next dialog starts from.
  [[nodiscard]] ToleranceFrame& toleranceFrame() { return toleranceFrame_; }

  // Whether a drawing command may go on: a configuration is loaded, if need be after the setup dialog.
  bool checkConfiguration();
  void runSetup();

 private:
  void loadRemembered();
  void setUpFirst();

  const Services& services_;
  Configuration configuration_;
  ToleranceFrame toleranceFrame_;
};

std::unique_ptr<MechToolset> makeMechToolset(CCadWindow* view, const Services& services);

// The command that shows the setup dialog.
void displaySetup(MechToolset& toolset);

}  // namespace ardenix::mech
