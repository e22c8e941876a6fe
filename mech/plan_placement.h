#pragma once

#include <optional>
#include <string_view>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

namespace ardenix::mech {

// Where the user put a plan, and the point that it is to be turned to.
struct PlanPlacement {
  Point centre;
  Point target;
};

// Asks for a plan that lies on no axis; the word stands for the part in the prompts. Nothing when the user ended one.
std::optional<PlanPlacement> askPlan(CCadWindow& view, std::string_view word);

}  // namespace ardenix::mech
