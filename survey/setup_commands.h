#pragma once

#include "frame/host/cad_window.h"
#include "frame/services.h"
#include "survey/sectional_plan_job.h"
#include "survey/survey_mode.h"

namespace ardenix::survey {

// The commands that show the setup dialog; the keyboard goes back to the view.
void setUpDiagrams(CCadWindow& view, const Services& services);
void setUpGeneralPlans(CCadWindow& view, const Services& services);
// After OK the job takes the floor names of the file.
void setUpSectionalPlans(SectionalPlanJob& job);

}  // namespace ardenix::survey
