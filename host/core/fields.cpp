#include "host/core/fields.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"

namespace brevan {

std::optional<int> leadingInteger(std::string_view text) {
  const std::optional<double> value = numberText::leadingDouble(text);
  if (!value) { return std::nullopt; }
  const double whole = std::trunc(*value);
  if (whole < std::numeric_limits<int>::min() || whole > std::numeric_limits<int>::max()) { return std::nullopt; }
  return static_cast<int>(whole);
}

int copyCut(std::string_view text, char* buffer, int size) {
  if (buffer == nullptr || size <= 0) { return 0; }
  const size_t length = std::min(text.size(), static_cast<size_t>(size) - 1);
  if (length > 0) { std::memmove(buffer, text.data(), length); }  // an empty text may stand nowhere
  buffer[length] = '\0';
  return static_cast<int>(length);
}

std::optional<std::string_view> fieldOf(std::string_view record, int index, char separator) {
  const bool blank = separator == ' ';
  if (index < 1) { return std::nullopt; }
  for (size_t at = 0;; --index) {
    if (blank) { at = std::min(record.find_first_not_of(' ', at), record.size()); }
    if (blank && at == record.size()) { return std::nullopt; }
    const size_t end = std::min(record.find(separator, at), record.size());
    if (index == 1) { return record.substr(at, end - at); }
    if (end == record.size()) { return std::nullopt; }
    at = end + 1;
  }
}

}  // namespace brevan

int coreGetField(std::string_view record, std::string_view fallback, char* buffer, int size, int index,
                 char separator) {
  return brevan::copyCut(brevan::fieldOf(record, index, separator).value_or(fallback), buffer, size);
}

double coreGetFieldDouble(std::string_view record, double fallback, int index, char separator) {
  const auto field = brevan::fieldOf(record, index, separator);
  return field ? numberText::leadingDouble(*field).value_or(fallback) : fallback;
}

int coreGetFieldInt(std::string_view record, int fallback, int index, char separator) {
  const auto field = brevan::fieldOf(record, index, separator);
  return field ? brevan::leadingInteger(*field).value_or(fallback) : fallback;
}

void coreTrimStr(std::string& text) { text = std::string(brevan::trimmed(text)); }
void coreStrncpy(char* target, std::string_view source, int size) { brevan::copyCut(source, target, size); }

int coreIsNumeric(std::string_view text) {
  text = brevan::trimmed(text);
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') { text.remove_prefix(1); }
  return numberText::parseDouble(text) ? 1 : 0;
}
