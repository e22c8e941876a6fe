#pragma once

#include <optional>
#include <string_view>

namespace ardenix::survey {

// The kinds of survey job; each has a settings file of its own. The numbers stand in those files.
enum class SurveyMode : int { kDiagram = 0, kGeneralPlan = 1, kSectionalPlan = 2 };

struct ModeRow {
  SurveyMode mode;
  std::string_view name;         // in titles and questions
  std::string_view settingsKey;  // of the file's path, in section kHostSection of the host's settings
  std::string_view fileMissing;  // said when a command finds no such file
};

inline constexpr std::string_view kHostSection = "SG_DEFAULTS";

const ModeRow& modeRow(SurveyMode mode);
// Nothing for a number that is no mode.
std::optional<SurveyMode> modeOf(int number);

}  // namespace ardenix::survey
