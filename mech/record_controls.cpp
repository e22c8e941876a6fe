#include "mech/record_controls.h"

namespace ardenix::mech {

namespace {

std::optional<FieldProblem> problem(const FieldControl& control, std::string message) {
  if (message.empty()) { return std::nullopt; }
  return FieldProblem{handleOf(control), std::move(message)};
}

struct Unchosen {
  std::string operator()(const dialog::Handle&) const { return ""; }
  std::string operator()(const dialog::DropDownHandle& list) const {
    if (list.selected() >= 0) { return ""; }
    return numberText::format("Please select a %s from its list.", list.control().caption);
  }
};

struct Unstorable {
  std::string_view label;

  std::string operator()(const dialog::Handle&) const { return ""; }
  std::string operator()(const dialog::TextHandle& edit) const {
    if (edit.text().find(kFieldSeparator) == std::string::npos) { return ""; }
    return numberText::format("%s takes no comma, which stands between the fields of a definition.", label);
  }
};

}  // namespace

std::optional<FieldProblem> unchosen(const FieldControl& control) {
  return problem(control, std::visit(Unchosen{}, control));
}

std::optional<FieldProblem> unstorable(const FieldControl& control, std::string_view label) {
  return problem(control, std::visit(Unstorable{label}, control));
}

}  // namespace ardenix::mech
