#pragma once

#include <memory>
#include <string>
#include <vector>

#include "frame/services.h"
#include "frame/toolset.h"

namespace ardenix::survey {

// The sectional plan that is worked on: kept from the first setup until the module is unloaded.
class SectionalPlanJob : public Toolset {
 public:
  // Loads what the remembered settings file holds, if there is one.
  SectionalPlanJob(CCadWindow* view, const Services& services);

  [[nodiscard]] const Services& services() const { return services_; }
  // In the order of the settings file.
  [[nodiscard]] const std::vector<std::string>& floorNames() const { return floorNames_; }
  void reloadFloorNames();

 private:
  const Services& services_;
  std::vector<std::string> floorNames_;
};

}  // namespace ardenix::survey
