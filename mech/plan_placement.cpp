#include "mech/plan_placement.h"

#include "frame/drafting/part_round.h"
#include "frame/host/number_text.h"

namespace ardenix::mech {

std::optional<PlanPlacement> askPlan(CCadWindow& view, std::string_view word) {
  view.SetFocus();
  const auto centre = askPlace(view, numberText::format("Indicate %s center for plan view", word));
  if (!centre) { return std::nullopt; }
  const auto target =
      askPoint(view, numberText::format("Indicate a point on the %s plan view center line for rotation", word));
  if (!target) { return std::nullopt; }
  return PlanPlacement{*centre, *target};
}

}  // namespace ardenix::mech
