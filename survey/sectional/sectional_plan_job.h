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

// Which sheet of a series is drawn; of 0: one by itself, numbered as the settings say.
struct SheetNumber {
  int number = 0;
  size_t of = 0;
};

// How the quotas were last made to add up, and of which state of the list it is true.
struct AdjustmentRule {
  std::string text;
  long long revision = -1;
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
  [[nodiscard]] double unitFactor() const { return settings_->unitFactor(); }

  SectionList sections;
  InsertDefaults defaults;
  std::string notes;
  AdjustmentRule adjustmentRule;
  std::vector<ExclusiveArea> exclusiveAreas;  // in the order of tracing
  SheetNumber sheet;

 private:
  const Services& services_;
  std::vector<std::string> floorNames_;
  std::unique_ptr<JobSettings> settings_;
};

}  // namespace ardenix::survey
