#include "host/macros/variables.h"

#include <algorithm>

namespace brevan {

namespace {

std::string key(std::string_view name) {
  std::string lower(name);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return lower;
}

}  // namespace

void MacroVariables::setNumber(std::string_view name, double value) { values_[key(name)] = value; }

void MacroVariables::setText(std::string_view name, std::string_view text) { values_[key(name)] = std::string(text); }

std::optional<double> MacroVariables::number(std::string_view name) const {
  const auto entry = values_.find(key(name));
  if (entry == values_.end() || !std::holds_alternative<double>(entry->second)) { return std::nullopt; }
  return std::get<double>(entry->second);
}

const std::string* MacroVariables::text(std::string_view name) const {
  const auto entry = values_.find(key(name));
  return entry == values_.end() ? nullptr : std::get_if<std::string>(&entry->second);
}

}  // namespace brevan
