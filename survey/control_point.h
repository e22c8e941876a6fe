#pragma once

#include <string>
#include <string_view>

namespace ardenix::survey {

enum class ControlCategory : int { kTownSurveyMark = 0, kTrigonometricalBeacon = 1 };

// A point that ties a survey to the national coordinate system.
struct ControlPoint {
  ControlCategory category = ControlCategory::kTownSurveyMark;
  std::string name;
  std::string number;  // of a beacon, degree square/number; may be empty
  double y = 0.0;      // metres; the drawing's first coordinate
  double x = 0.0;      // metres; the drawing's second coordinate
};

inline constexpr std::string_view kControlSection = "TRIGTSM";
inline constexpr std::string_view kControlKeys[] = {"CtrlPnt1", "CtrlPnt2"};
inline constexpr std::string_view kControlStoreKey = "TrigINI";

// The point of a settings value; every category but the town survey mark's is a beacon's.
ControlPoint controlPointOf(std::string_view value);
// Its settings value; commas in name and number become blanks.
std::string controlPointText(const ControlPoint& point);

}  // namespace ardenix::survey
