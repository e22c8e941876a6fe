#pragma once

#include <memory>
#include <string>
#include <vector>

#include "frame/services.h"
#include "frame/toolset.h"
#include "survey/job_settings.h"
#include "survey/sectional/section_list.h"

namespace ardenix::survey {

// What the next section is offered with.
struct InsertDefaults {
  int number = 1;
  int building = 1;  // 0: none
  int floor = 0;
  bool part = false;
};

// The sectional plan that is worked on: kept from the first setup until the module is unloaded. Its sections reach the
// disk by being saved alone.
class SectionalPlanJob : public Toolset {
 public:
  // Loads what the remembered settings file holds, if there is one.
  SectionalPlanJob(CCadWindow* view, const Services& services);

  [[nodiscard]] const Services& services() const { return services_; }
  // In the order of the settings file.
  [[nodiscard]] const std::vector<std::string>& floorNames() const { return floorNames_; }
  // The number of a floor that the file does not name.
  [[nodiscard]] std::string floorName(int floor) const;
  void reloadFloorNames();

  // Reads the settings file afresh, as every command begins. False, with a message, where nothing can be drawn.
  bool begin() { return beginJob(settings_, SurveyMode::kSectionalPlan, view()); }
  // The settings of the command that begin() began.
  [[nodiscard]] JobSettings& settings() { return *settings_; }

  SectionList sections;
  InsertDefaults defaults;
  std::string notes;
  std::string adjustmentRule;  // how the quotas were last made to add up

 private:
  const Services& services_;
  std::vector<std::string> floorNames_;
  std::unique_ptr<JobSettings> settings_;
};

}  // namespace ardenix::survey
