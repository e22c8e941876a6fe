#include "survey/text_row.h"

#include <algorithm>

#include "frame/host/core_services.h"
#include "frame/records.h"

namespace ardenix::survey {

namespace {

constexpr char kSeparator = ',';
}  // namespace

void splitFields(std::string_view record, std::span<std::string> fields) {
  size_t at = 0;
  for (std::string& field : fields) {
    const size_t end = std::min(record.find(kSeparator, at), record.size());
    field = record.substr(at, end - at);
    at = std::min(end + 1, record.size());
  }
}

std::string joinedFields(std::span<const std::string> fields) {
  std::string record;
  for (size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) { record += kSeparator; }
    record += fields[i];
  }
  return record;
}

TextRow textRowOf(std::string_view value) {
  const TextRow missing;
  std::array<std::string, 7> fields;
  splitFields(value, fields);
  const auto number = [value](int field) { return coreGetFieldDouble(value, 0.0, field, kSeparator); };
  const auto integer = [value](int field, int fallback) { return coreGetFieldInt(value, fallback, field, kSeparator); };
  return {.text = commasRestored(fields[0]),
          .horizontal = number(2),
          .vertical = number(3),
          .pen = integer(4, missing.pen),
          .size = integer(5, missing.size),
          .justification = integer(6, missing.justification),
          .font = fields[6].empty() ? missing.font : fields[6],
          .underlined = integer(8, 0) > 0};
}

LineRow lineRowOf(std::string_view value) {
  const LineRow missing;
  const auto number = [value](int field) { return coreGetFieldDouble(value, 0.0, field, kSeparator); };
  return {.startHorizontal = number(1),
          .startVertical = number(2),
          .endHorizontal = number(3),
          .endVertical = number(4),
          .pen = coreGetFieldInt(value, missing.pen, 5, kSeparator),
          .linetype = coreGetFieldInt(value, missing.linetype, 6, kSeparator)};
}

}  // namespace ardenix::survey
