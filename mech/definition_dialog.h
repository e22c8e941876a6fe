#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "frame/host/dialog.h"
#include "frame/services.h"
#include "mech/definition_kinds.h"
#include "mech/definition_store.h"
#include "mech/record_format.h"

namespace ardenix {

// The setup dialog of a kind that has a library of definitions: the list, Add and Delete, the care for edits
// that were not saved, and the order of OK. A kind derives from it, adds its fields and options to the
// description and overrides its rules.
class DefinitionDialog {
 public:
  DefinitionDialog(const Services& services, DefinitionStore& store, const DefinitionKind& kind,
                   std::span<const RecordField> fields);
  DefinitionDialog(const DefinitionDialog&) = delete;
  DefinitionDialog& operator=(const DefinitionDialog&) = delete;
  virtual ~DefinitionDialog() = default;

  // True when the user closed it with OK; the kind has then taken over the values.
  bool run();

 protected:
  // A condition that the field values must meet, the field to go to and the message where they do not.
  struct Rule {
    bool met;
    dialog::Handle field;
    std::string_view message;
  };

  // ---- Description: rows 1 to 8 of the dialog's grid are the kind's -----------------------------------------
  [[nodiscard]] dialog::Dialog& box() { return dialog_; }
  // A control that shows a field of the record, by its index in the format; an edit of it counts as a change
  // of the definition. An empty caption is filled with the field's label unless the control has a name.
  CFloatEdit addNumberField(size_t field, dialog::Setting setting, double maximum);
  CIntEdit addIntegerField(size_t field, dialog::Setting setting, int minimum, int maximum);
  dialog::DropDownHandle addListField(size_t field, dialog::Setting setting, std::vector<std::string> items);
  void editChangesDefinition(const dialog::Handle& control);

  // ---- Rules of the kind ------------------------------------------------------------------------------------
  virtual void readOptions() {}
  // What OK needs besides the definition.
  virtual bool optionsComplete() { return true; }
  // Checks the values, tells what is wrong.
  virtual bool validate() { return true; }
  // A last check before a record is stored, new ones included; tells what is wrong.
  virtual bool mayBeSaved() { return true; }
  // Hands the values to the part to be drawn.
  virtual void accept() = 0;
  virtual void writeOptions() {}
  // The fields show other values: a definition was loaded, or the user edited one.
  virtual void fieldsChanged() {}
  virtual void loadRecord(std::string_view record);
  virtual std::string recordText(std::string_view name) const;

  // ---- For the rules ---------------------------------------------------------------------------------------
  // Tells of every rule that is not met, the focus on the last; true when all are.
  bool meets(std::initializer_list<Rule> rules);
  void showValues(std::span<const double> values);
  // The control that shows a field.
  [[nodiscard]] dialog::Handle control(size_t field) const;
  [[nodiscard]] std::vector<double> values() const;
  // The name that the list shows, "" where nothing is selected.
  [[nodiscard]] std::string shownName() const { return list_.text(); }
  [[nodiscard]] DefinitionStore& store() const { return store_; }

 private:
  using FieldControl = std::variant<std::monostate, CFloatEdit, CIntEdit, dialog::DropDownHandle>;

  void describeList();
  void bind(size_t field, const dialog::Handle& control, FieldControl shown);
  dialog::Setting labelled(size_t field, dialog::Setting setting) const;
  void open();
  void chooseOther();
  void loadSelected();
  void noteSelection();
  bool settleEdits();
  bool settleByChoice();
  void settleByQuestion();
  bool saveCurrent();
  void add();
  bool addDefinition();
  std::optional<std::string> askNewName();
  void remove();
  bool removalWanted();
  bool confirm();

  const Services& services_;
  DefinitionStore& store_;
  const DefinitionKind& kind_;
  std::span<const RecordField> fields_;
  dialog::Dialog dialog_;
  dialog::DropDownHandle list_;
  std::vector<FieldControl> controls_;  // one for each field
  int currentIndex_ = -1;               // of the definition that the fields show, -1 for none
  std::string currentName_;
  bool changed_ = false;
};

}  // namespace ardenix
