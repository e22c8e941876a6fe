#include "survey/sectional/sectional_plan_job.h"

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/settings_keys.h"

namespace ardenix::survey {

namespace {

constexpr size_t kLongestFloorName = 63;

}  // namespace

SectionalPlanJob::SectionalPlanJob(CCadWindow* view, const Services& services) : Toolset(view), services_(services) {
  reloadFloorNames();
}

std::string SectionalPlanJob::floorName(int floor) const {
  const auto index = static_cast<size_t>(floor);
  return index < floorNames_.size() ? floorNames_[index] : std::to_string(floor + 1);
}

void SectionalPlanJob::reloadFloorNames() {
  floorNames_.clear();
  const std::string path = rememberedFile(SurveyMode::kSectionalPlan);
  if (coreFileExist(path) == 0) { return; }
  try {
    const TINIFile file(path);
    for (int number = 1; number <= kMostFloors; ++number) {
      const auto name = storedValue(file, kFloorSection, numberText::format(kFloorKey, number));
      if (!name) { return; }
      floorNames_.push_back(name->substr(0, kLongestFloorName));
    }
  } catch (const HostFailure&) {
    return;  // the setup dialog tells why the file cannot be read
  }
}

}  // namespace ardenix::survey
