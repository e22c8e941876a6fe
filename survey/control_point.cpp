#include "survey/control_point.h"

#include <algorithm>
#include <array>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/text_row.h"

namespace ardenix::survey {

namespace {

std::string withoutCommas(std::string text) {
  std::ranges::replace(text, ',', ' ');
  return text;
}

}  // namespace

ControlPoint controlPointOf(std::string_view value) {
  std::array<std::string, 3> fields;
  splitFields(value, fields);
  return {.category = coreGetFieldInt(value, 0, 1, ',') == 0 ? ControlCategory::kTownSurveyMark
                                                             : ControlCategory::kTrigonometricalBeacon,
          .name = fields[1],
          .number = fields[2],
          .y = coreGetFieldDouble(value, 0.0, 4, ','),
          .x = coreGetFieldDouble(value, 0.0, 5, ',')};
}

std::string controlPointText(const ControlPoint& point) {
  return numberText::format("%d,%s,%s,%.2f,%.2f", static_cast<int>(point.category), withoutCommas(point.name),
                            withoutCommas(point.number), point.y, point.x);
}

}  // namespace ardenix::survey
