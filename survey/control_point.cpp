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

constexpr std::ptrdiff_t kSeparators = 4;

bool isNumber(std::string text) {
  coreTrimStr(text);
  return coreIsNumeric(text) != 0;
}

}  // namespace

bool isControlPoint(std::string_view value) {
  if (value.find_first_not_of(", ") == std::string_view::npos) { return true; }
  std::array<std::string, kSeparators + 1> fields;
  splitFields(value, fields);
  const auto& [category, name, number, y, x] = fields;
  return std::ranges::count(value, ',') == kSeparators && isNumber(category) && isNumber(y) && isNumber(x);
}

void checkControlPoints(const TINIFile& file) {
  for (const std::string_view key : kControlKeys) {
    const std::string value = file.ReadString(kControlSection, key, "");
    if (isControlPoint(value)) { continue; }
    throw HostFailure(numberText::format(
        "%s: \"%s\" in section \"%s\" takes category, name, number, Y and X between commas, got \"%s\"",
        file.FileName(), key, kControlSection, value));
  }
}

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
