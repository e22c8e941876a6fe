#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/host/dialog.h"
#include "frame/services.h"
#include "mech/definition_kinds.h"
#include "mech/definition_store.h"

namespace ardenix::mech {

// The setup dialog of a kind that has a library of definitions: the list, Add and Delete, the care for edits
// that were not saved, and the order of OK. What its records hold is told by those who derive from it.
class DefinitionDialog {
 public:
  DefinitionDialog(const Services& services, DefinitionStore& store, const DefinitionKind& kind);
  DefinitionDialog(const DefinitionDialog&) = delete;
  DefinitionDialog& operator=(const DefinitionDialog&) = delete;
  virtual ~DefinitionDialog() = default;

  // True when the user closed it with OK; the kind has then taken over the values.
  bool run();

 protected:
  // ---- Description: rows 1 to 8 of the dialog's grid are the kind's -----------------------------------------
  [[nodiscard]] dialog::Dialog& box() { return dialog_; }
  // What the user edits there changes what is shown; it counts as a change of the definition if it marks it edited.
  // What follows from a control that settles on leaving is shown when the user leaves it.
  void follow(const dialog::Handle& control, bool marksEdited, bool settlesOnLeave = false);

  // ---- Rules of the kind ------------------------------------------------------------------------------------
  virtual void readOptions() {}
  // What OK needs besides the definition.
  virtual bool optionsComplete() { return true; }
  // Checks the values, tells what is wrong.
  virtual bool validate() { return true; }
  // Whether a part can be drawn with values that are valid; tells why not. Asked by OK, not where a record is stored.
  virtual bool drawable() { return true; }
  // A last check before a record is stored, new ones included; tells what is wrong.
  virtual bool mayBeSaved() { return true; }
  // Whether a new definition may be called so; tells why not.
  virtual bool nameFree(std::string_view /*name*/) { return true; }
  // A record is about to be stored under a name, or removed: what a kind keeps elsewhere in the file goes with it.
  virtual void storing(std::string_view /*name*/) {}
  virtual void removing(std::string_view /*name*/) {}
  // Hands the values to the part to be drawn.
  virtual void accept() = 0;
  virtual void writeOptions() {}
  // The definition last used is shown: what the dialog opens with besides.
  virtual void opened() {}
  // The fields show other values: a definition was loaded, or the user edited one.
  virtual void fieldsChanged() {}
  // Between the fields and the text of a record.
  virtual void showRecord(std::string_view text) = 0;
  [[nodiscard]] virtual std::string recordText(std::string_view name) const = 0;

  // ---- For the rules ---------------------------------------------------------------------------------------
  // The user changed the definition by something that is no field.
  void noteEdit();
  // Warns and puts the focus on a field; false, for the rule that is not met.
  bool refuse(const dialog::Handle& field, std::string_view message);
  // The name that the list shows, "" where nothing is selected.
  [[nodiscard]] std::string shownName() const { return list_.text(); }
  [[nodiscard]] DefinitionStore& store() const { return store_; }

 private:
  void describeList();
  void open();
  void chooseOther();
  void loadSelected();
  void noteSelection();
  bool settleEdits();
  bool settleByChoice();
  void settleByQuestion();
  [[nodiscard]] std::string textOf(std::string_view name) const;
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
  dialog::Dialog dialog_;
  dialog::DropDownHandle list_;
  int currentIndex_ = -1;  // of the definition that the fields show, -1 for none
  std::string currentName_;
  bool changed_ = false;
};

}  // namespace ardenix::mech
