#pragma once

#include "mech/definition_dialog.h"
#include "mech/fastener.h"
#include "mech/fastener_options.h"

namespace ardenix {

// The definition dialog of a fastener: the kind adds its fields above the options that all fasteners share.
class FastenerDialog : public DefinitionDialog {
 public:
  [[nodiscard]] ViewMode viewMode() const { return options_->viewMode(); }

 protected:
  FastenerDialog(const Services& services, DefinitionStore& store, std::string_view section,
                 std::span<const RecordField> fields, Fastener& fastener);

  // Called once, after the kind has added its fields.
  void addOptions(const FastenerOptionTexts& texts, int row);
  [[nodiscard]] const FastenerOptions& options() const { return *options_; }
  // Whether the parts of a repeat, this wide, stand clear of each other.
  [[nodiscard]] bool repeatClears(double width) const;

  void readOptions() override { options_->read(store()); }
  bool optionsComplete() override;
  void writeOptions() override { options_->write(store()); }
  void accept() override;

 private:
  Fastener& fastener_;
  std::optional<FastenerOptions> options_;
};

}  // namespace ardenix
