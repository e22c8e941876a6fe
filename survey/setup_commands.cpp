#include "survey/setup_commands.h"

#include "survey/setup_dialog.h"

namespace ardenix::survey {

void setUpDiagrams(CCadWindow& view, const Services& services) {
  SetupDialog(SurveyMode::kDiagram, view, services).run();
  view.SetFocus();
}

void setUpGeneralPlans(CCadWindow& view, const Services& services) {
  SetupDialog(SurveyMode::kGeneralPlan, view, services).run();
  view.SetFocus();
}

}  // namespace ardenix::survey
