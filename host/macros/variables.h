#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>

namespace brevan {

// The host's macro variables, shared by all windows. Names match without regard to case; those ending in
// "$" hold texts, the others numbers.
class MacroVariables {
 public:
  using Value = std::variant<double, std::string>;

  void setNumber(std::string_view name, double value);
  void setText(std::string_view name, std::string_view text);
  // Nothing where the variable is not set.
  [[nodiscard]] std::optional<double> number(std::string_view name) const;
  [[nodiscard]] const std::string* text(std::string_view name) const;

 private:
  std::unordered_map<std::string, Value> values_;
};

}  // namespace brevan
