#pragma once

#include "survey/sectional/outline.h"
#include "survey/sectional/sectional_plan_job.h"

namespace ardenix::survey {

// All that were traced.
Outlines tracedOutlines(const SectionalPlanJob& job);

// Tells which of the outlines overlap others of their floor or leave a gap to them.
void tellOfFaults(const SectionalPlanJob& job, const Outlines& outlines);
// The same of one section's outline and the others of its floor.
void tellOfFaultsOf(const SectionalPlanJob& job, long long section);

}  // namespace ardenix::survey
