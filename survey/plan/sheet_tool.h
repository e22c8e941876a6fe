#pragma once

#include <memory>
#include <optional>

#include "frame/services.h"
#include "frame/toolset.h"
#include "survey/job_settings.h"

namespace ardenix::survey {

// What the commands of general plans run in. Each reads the settings file afresh.
class SheetTool : public Toolset {
 public:
  SheetTool(CCadWindow* view, const Services& services) : Toolset(view), services_(services) {}

  [[nodiscard]] const Services& services() const { return services_; }
  // How every command begins. Null, with a message, where there is no settings file or the drawing is not a survey
  // drawing; else the job until the next command.
  JobSettings* begin();

 private:
  const Services& services_;
  std::unique_ptr<JobSettings> job_;
};

std::unique_ptr<SheetTool> makeSheetTool(CCadWindow* view, const Services& services);

// Where the user wants a heading or table; nothing when the user ended the prompt.
std::optional<Point> askHeadingPlace(CCadWindow& view);

}  // namespace ardenix::survey
