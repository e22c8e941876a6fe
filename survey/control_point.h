#pragma once

#include <string>
#include <string_view>

#include "frame/host/ini.h"

namespace ardenix::survey {

enum class ControlCategory : int { kTownSurveyMark = 0, kTrigonometricalBeacon = 1 };

// A point that ties a survey to the national coordinate system.
struct ControlPoint {
  ControlCategory category = ControlCategory::kTownSurveyMark;
  std::string name;
  std::string number;  // of a beacon, degree square/number; may be empty
  double y = 0.0;      // metres; the drawing's first coordinate
  double x = 0.0;      // metres; the drawing's second coordinate

  friend bool operator==(const ControlPoint&, const ControlPoint&) = default;
};

inline constexpr std::string_view kControlSection = "TRIGTSM";
inline constexpr std::string_view kControlKeys[] = {"CtrlPnt1", "CtrlPnt2"};
inline constexpr std::string_view kControlStoreKey = "TrigINI";

// Whether a settings value is a whole record, or holds nothing at all.
bool isControlPoint(std::string_view value);
// Throws HostFailure that names the record of a settings file that is neither.
void checkControlPoints(const TINIFile& file);

// The point of a settings value, of a damaged one what can be read; every category but the town survey mark's is a
// beacon's.
ControlPoint controlPointOf(std::string_view value);
// Its settings value; commas in name and number become blanks.
std::string controlPointText(const ControlPoint& point);

}  // namespace ardenix::survey
