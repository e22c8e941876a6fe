#include "mech/record_controls.h"

namespace ardenix::mech {

int selectedIn(const FieldControl& control) {
  return std::visit(
      [](const auto& list) {
        if constexpr (kIsList<decltype(list)>) { return list.selected(); }
        return -1;
      },
      control);
}

std::optional<FieldProblem> unchosen(const FieldControl& control) {
  const bool list = std::visit([](const auto& handle) { return kIsList<decltype(handle)>; }, control);
  if (!list || selectedIn(control) >= 0) { return std::nullopt; }
  const dialog::Handle handle = handleOf(control);
  return FieldProblem{handle, numberText::format("Please select a %s from its list.", handle.control().caption)};
}

}  // namespace ardenix::mech
