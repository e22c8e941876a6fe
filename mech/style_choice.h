#pragma once

#include <string_view>

#include "frame/host/dialog.h"
#include "mech/definition_store.h"

namespace ardenix::mech {

// The choice between solid and hidden lines, kept under a key of section "Defaults": 0 solid, 1 hidden.
class StyleChoice {
 public:
  StyleChoice() = default;
  // `part` is what the tool tips call what is drawn so.
  StyleChoice(dialog::Dialog& dialog, dialog::Setting setting, std::string_view part);

  void read(const DefinitionStore& store, std::string_view key) const;
  void write(DefinitionStore& store, std::string_view key) const;
  [[nodiscard]] bool hidden() const;

 private:
  dialog::RadioHandle radio_;
};

}  // namespace ardenix::mech
