#pragma once

#include "survey/sectional/sectional_plan_job.h"

namespace ardenix::survey {

// The job, begun where there was none: only the setup begins one.
struct StartedJob {
  SectionalPlanJob& job;
};

// Shows the setup dialog; after OK the job takes the floor names of the file. The keyboard goes back to the view.
void setUpSectionalPlans(const StartedJob& started);

// The commands below need a job that was begun.
void manageSections(SectionalPlanJob& job);
// Traces the outline of one section and inserts the section.
void traceSection(SectionalPlanJob& job);

// Sheets, each in a new window on its template.
void makeSheetOne(SectionalPlanJob& job);
// Traces the outside figure of the land first.
void makeBlockPlan(SectionalPlanJob& job);
void makeFloorPlans(SectionalPlanJob& job);
// A schedule that is longer than a sheet goes on to further ones.
void makeQuotaSheet(SectionalPlanJob& job);

}  // namespace ardenix::survey
