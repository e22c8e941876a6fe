#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "survey/figure.h"
#include "survey/sectional/outline.h"
#include "survey/sectional/sectional_sheet.h"

// The sheets of a sectional plan for a job that has begun, each in a window of its own. False, with a message, where
// the host opens none. A title is offered in place of that of the settings.
namespace ardenix::survey {

bool drawSheetOne(SectionalPlanJob& job);

// Traces the outside figure of the land. Nothing, with a message, for what is no figure.
std::optional<Figure> traceLand(SectionalPlanJob& job);
bool drawBlockPlan(SectionalPlanJob& job, const Figure& figure, std::string_view title = {});

// What the user answered to the first of some plans and the others take over.
struct PlanAnswers {
  FrameAnswer frame;
  std::optional<bool> notes;  // whether they are wanted
};
bool drawFloorPlan(SectionalPlanJob& job, const Outlines& outlines, PlanAnswers& answers, std::string_view title = {});

// As many as the schedule takes.
size_t quotaSheets(SectionalPlanJob& job);
bool drawQuotaSheets(SectionalPlanJob& job, std::string_view title = {});

// All of them, one after the other, numbered.
void drawAllSheets(SectionalPlanJob& job);

}  // namespace ardenix::survey
