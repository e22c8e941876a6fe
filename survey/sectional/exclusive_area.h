#pragma once

#include "survey/sectional/sectional_plan_job.h"

namespace ardenix::survey {

// Asks for the letters and the floor of an exclusive use area that was traced, and adds it to the job. Letters that are
// there already name the new outline alone.
void addExclusiveArea(SectionalPlanJob& job, ExclusiveArea area);

}  // namespace ardenix::survey
