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

  // The outside figure that was traced last in the view that is worked in, and the erven numbered last; their areas are
  // in the drawing's area unit.
  struct TracedArea {
    std::string name;  // of its corners, a blank before each and one after the last
    double area = 0.0;
  };
  struct NumberedErven {
    int count = 0;
    double area = 0.0;  // of all
  };
  [[nodiscard]] std::optional<TracedArea> lastFigure() const { return isHere() ? figure_ : std::nullopt; }
  [[nodiscard]] std::optional<NumberedErven> lastErven() const { return isHere() ? erven_ : std::nullopt; }
  void setLastFigure(TracedArea figure);
  void setLastErven(NumberedErven erven);

 private:
  const Services& services_;
  std::unique_ptr<JobSettings> job_;
  [[nodiscard]] bool isHere() const { return areasView_.lock() == view().life().lock(); }
  void moveHere();

  std::optional<TracedArea> figure_;
  std::optional<NumberedErven> erven_;
  std::weak_ptr<const void> areasView_;  // the view of both
};

std::unique_ptr<SheetTool> makeSheetTool(CCadWindow* view, const Services& services);

// Where the user wants a heading or table; nothing when the user ended the prompt.
std::optional<Point> askHeadingPlace(CCadWindow& view);

}  // namespace ardenix::survey
