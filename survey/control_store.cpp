#include "survey/control_store.h"

#include <array>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "survey/text_row.h"

namespace ardenix::survey {

namespace {

std::string_view sectionOf(ControlCategory category) {
  return category == ControlCategory::kTownSurveyMark ? "TSM" : "TRIG";
}

}  // namespace

std::string controlKey(const ControlPoint& point) {
  const bool numbered = point.category == ControlCategory::kTrigonometricalBeacon && !point.number.empty();
  return numbered ? point.name + ' ' + point.number : point.name;
}

std::vector<std::string> ControlStore::keys(ControlCategory category) const {
  std::vector<std::string> keys;
  INI_LINE* first = nullptr;
  INI_LINE* last = nullptr;
  file_.GetSectionLimits(sectionOf(category), first, last);
  for (INI_LINE* line = first; line != nullptr; line = line == last ? nullptr : line->Next()) {
    const std::string& text = line->Text();
    const size_t equals = text.find('=');
    if (equals == std::string::npos || text.front() == ';') { continue; }
    std::string key = text.substr(0, equals);
    coreTrimStr(key);
    if (!key.empty()) { keys.push_back(std::move(key)); }
  }
  return keys;
}

std::optional<ControlPoint> ControlStore::find(ControlCategory category, std::string_view key) const {
  std::array<char, 256> value{};
  if (file_.GetString(sectionOf(category), key, "", value.data(), static_cast<int>(value.size())) == 0) {
    return std::nullopt;
  }
  const bool mark = category == ControlCategory::kTownSurveyMark;
  std::array<std::string, 3> fields;
  splitFields(value.data(), fields);
  const std::string& y = fields[mark ? 0 : 1];
  const std::string& x = fields[mark ? 1 : 2];
  if (coreIsNumeric(y) == 0 || coreIsNumeric(x) == 0) { return std::nullopt; }
  ControlPoint point{.category = category,
                     .name = std::string(key),
                     .number = {},
                     .y = numberText::leadingDouble(y).value_or(0.0),
                     .x = numberText::leadingDouble(x).value_or(0.0)};
  const size_t blank = point.name.rfind(' ');
  if (!mark && coreGetFieldInt(value.data(), 0, 1, ',') == 1 && blank != std::string::npos) {
    point.number = point.name.substr(blank + 1);
    point.name.resize(blank);
    coreTrimStr(point.name);
  }
  return point;
}

void ControlStore::add(ControlCategory category, const ListedPoint& point) {
  file_.SetString(sectionOf(category), point.key, point.value);
}

void ControlStore::add(const ControlPoint& point) {
  const std::string place = numberText::format("%.2f,%.2f", point.y, point.x);
  const bool mark = point.category == ControlCategory::kTownSurveyMark;
  add(point.category, {controlKey(point), mark ? place : (point.number.empty() ? "0," : "1,") + place});
}

}  // namespace ardenix::survey
