#pragma once

#include <functional>
#include <memory>

#include "mech/definition_dialog.h"
#include "mech/fastener_drawer.h"
#include "mech/fastener_options.h"
#include "mech/mech_toolset.h"

namespace ardenix {

// A field of a fastener's dialog. Without a caption or name it bears its record field's label.
struct FieldRow {
  size_t field;  // of the record
  const char* toolTip;
  const char* caption = "";
  const char* name = "";
  std::span<const char* const> items = {};  // of a drop-down list; else it is a length
  const char* box = "";                     // a framed group of this caption takes it and its neighbours
};

// The dialog of a kind of fastener as data.
struct FastenerForm {
  std::string_view section;
  std::span<const RecordField> fields;
  std::span<const FieldRow> rows;  // in the dialog's order, two a line
  FastenerOptionTexts options;
};

// The definition dialog of a fastener: the fields of its form above the options that all fasteners share. A kind
// adds its validation, and pictures beside the fields.
class FastenerDialog : public DefinitionDialog {
 public:
  FastenerDialog(const Services& services, DefinitionStore& store, const FastenerForm& form, FastenerDrawer& drawer);

  [[nodiscard]] ViewMode viewMode() const { return options_->viewMode(); }
  // A picture of the part as it would be drawn, by a drawer of its own that works in the preview's view.
  using DrawerIn = std::function<std::unique_ptr<FastenerDrawer>(CCadWindow& view)>;
  void addPreview(DrawerIn drawerIn);

 protected:
  // Beside the fields, for pictures and previews.
  [[nodiscard]] int addPictureGroup(std::string_view caption);
  [[nodiscard]] const FastenerOptions& options() const { return *options_; }
  // Whether the parts of a repeat, this wide, stand clear of each other.
  [[nodiscard]] bool repeatClears(double width) const;
  // The index chosen in a field's list, -1 for none.
  [[nodiscard]] int choice(size_t field) const { return static_cast<int>(values().at(field)); }
  // Shows the picture of a choice, none where nothing is chosen.
  void showChoice(const dialog::PictureHandle& picture, size_t field, std::span<const char* const> pictures) const;

  void readOptions() override { options_->read(store()); }
  bool optionsComplete() override;
  void writeOptions() override { options_->write(store()); }
  void accept() override;

 private:
  bool choicesMade();
  void addFields();
  void addField(const FieldRow& row, int group, int cell);

  std::span<const FieldRow> rows_;
  FastenerDrawer& drawer_;
  int body_;                                // the group of the fields and what stands beside them
  std::optional<FastenerOptions> options_;  // below the fields in the order of the controls too
};

// The command of a kind: its dialog, then part after part.
template <class Drawer, class KindDialog>
void runFastenerCommand(MechToolset& toolset) {
  if (!toolset.checkConfiguration()) { return; }
  DefinitionStore& store = toolset.configuration().store();
  Drawer drawer(toolset.view(), store);
  KindDialog dialog(toolset.services(), store, drawer);
  if constexpr (!requires { KindDialog::kPaintsItsOwnPreview; }) {
    dialog.addPreview([&store](CCadWindow& view) { return std::make_unique<Drawer>(view, store); });
  }
  if (dialog.run()) { drawFasteners(drawer, dialog.viewMode()); }
}

}  // namespace ardenix
