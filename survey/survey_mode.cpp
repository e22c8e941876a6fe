#include "survey/survey_mode.h"

#include <iterator>

namespace ardenix::survey {

namespace {

// The spelling of these keys is part of the format and stays.
constexpr ModeRow kModes[] = {
    {SurveyMode::kDiagram, "SG Diagram", "SG_DiaramFile", "Please Load a SG Diagram *.ini file in the Setup dialog."},
    {SurveyMode::kGeneralPlan, "General Plan", "SG_GenPlanFile",
     "Please Load a General Plan *.ini file in the Setup dialog."},
    {SurveyMode::kSectionalPlan, "Sectional Plan", "SG_SectionalFile",
     "Please Load a SG Sectional *.ini file in the Setup dialog."},
};

}  // namespace

const ModeRow& modeRow(SurveyMode mode) { return kModes[static_cast<size_t>(mode)]; }

std::optional<SurveyMode> modeOf(int number) {
  if (number < 0 || number >= static_cast<int>(std::size(kModes))) { return std::nullopt; }
  return kModes[number].mode;
}

}  // namespace ardenix::survey
