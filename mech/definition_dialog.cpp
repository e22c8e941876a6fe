#include "mech/definition_dialog.h"

#include <algorithm>
#include <utility>

#include "frame/add_item_dialog.h"
#include "frame/messages.h"
#include "frame/names.h"
#include "frame/records.h"
#include "mech/save_changes_dialog.h"

namespace ardenix::mech {

namespace {

constexpr int kButtonRow = 9;

// Titles end in the dialog's name in the table of help pages.
std::string_view helpName(std::string_view title) { return title.substr(title.find(" - ") + 3); }

// A question about a definition, its name in the place of "%s".
std::string about(std::string_view question, std::string_view name) {
  const bool named = question.find("%s") != std::string_view::npos;
  return named ? numberText::format(question, name) : std::string(question);
}

}  // namespace

// ---- Description --------------------------------------------------------------------------------------------

DefinitionDialog::DefinitionDialog(const Services& services, DefinitionStore& store, const DefinitionKind& kind)
    : services_(services), store_(store), kind_(kind), dialog_(std::string(kind.dialogTitle)) {
  equip(dialog_, services_, helpTopic(helpName(kind_.dialogTitle)));
  describeList();
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

void DefinitionDialog::describeList() {
  const int group = dialog_.addGroup({});
  list_ = addDropDown(dialog_, {.toolTip = std::string(kind_.listTip), .group = group, .name = "Definition"});
  list_.onEdit([this] { chooseOther(); });
  addButton(dialog_, {.caption = "Add", .toolTip = std::string(kind_.addTip), .group = group, .place = {.column = 1}})
      .onPress([this] { add(); });
  addButton(dialog_,
            {.caption = "Delete", .toolTip = std::string(kind_.deleteTip), .group = group, .place = {.column = 2}})
      .onPress([this] { remove(); });
}

void DefinitionDialog::follow(const dialog::Handle& control, bool marksEdited, bool settlesOnLeave) {
  control.onEdit([this, marksEdited, settlesOnLeave] {
    changed_ = changed_ || marksEdited;
    if (!settlesOnLeave) { fieldsChanged(); }
  });
  if (settlesOnLeave) {
    control.onLeave([this] { fieldsChanged(); });
  }
}

bool DefinitionDialog::run() {
  addOkCancel(dialog_, kButtonRow);
  return services_.mainFrame->RunDialog(dialog_, services_.mainFrame);
}

// ---- The definition shown -----------------------------------------------------------------------------------

void DefinitionDialog::open() {
  list_.setItems(store_.names(kind_.section));
  const int last = store_.current(kind_.section);
  list_.select(last >= 0 && last < list_.count() ? last : 0);
  readOptions();
  loadSelected();
  opened();
}

void DefinitionDialog::loadSelected() {
  if (const auto record = store_.record(kind_.section, list_.selected() + 1)) { showRecord(*record); }
  noteSelection();
  fieldsChanged();
}

void DefinitionDialog::noteSelection() {
  currentIndex_ = list_.selected();
  currentName_ = list_.text();
  changed_ = false;
}

// Without a name the one that the list shows is taken.
std::string DefinitionDialog::textOf(std::string_view name) const {
  return recordText(name.empty() ? list_.text() : std::string(name));
}

void DefinitionDialog::chooseOther() {
  if (settleEdits()) { return loadSelected(); }
  list_.select(currentIndex_);
}

// ---- Edits that were not saved ------------------------------------------------------------------------------

// Answers whether to go on; if not, the user stays with the edited values.
bool DefinitionDialog::settleEdits() {
  if (!changed_) { return true; }
  if (kind_.family == DefinitionFamily::kChecked) { return settleByChoice(); }
  settleByQuestion();
  return true;
}

bool DefinitionDialog::settleByChoice() {
  switch (askSaveChanges(services_, &dialog_, kind_.changedTitle, kind_.changedQuestion)) {
    case SaveChoice::kSave: return validate() && saveCurrent();
    case SaveChoice::kSaveAsNew: return addDefinition();
    case SaveChoice::kDiscard: return true;
  }
  return true;
}

void DefinitionDialog::settleByQuestion() {
  if (!kind_.placeholder.empty() && currentName_ == kind_.placeholder) { return; }
  if (ask(&dialog_, about(kind_.changedQuestion, currentName_), kind_.changedTitle)) { saveCurrent(); }
  changed_ = false;
}

// With no definition in the list there is none to overwrite: the values become a new one.
bool DefinitionDialog::saveCurrent() {
  if (currentIndex_ < 0) { return addDefinition(); }
  if (!mayBeSaved()) { return false; }
  storing(currentName_);
  store_.put(kind_.section, currentIndex_ + 1, textOf(currentName_));
  changed_ = false;
  return true;
}

// ---- Add and Delete -----------------------------------------------------------------------------------------

void DefinitionDialog::add() {
  settleEdits();
  addDefinition();
}

bool DefinitionDialog::addDefinition() {
  const std::optional<std::string> name = askNewName();
  if (!name || !mayBeSaved()) { return false; }
  const std::string record = textOf(*name);
  storing(recordName(record));
  store_.append(kind_.section, record);
  list_.addItem(recordName(record));
  list_.select(list_.count() - 1);
  noteSelection();
  return true;
}

std::optional<std::string> DefinitionDialog::askNewName() {
  const bool checked = kind_.family == DefinitionFamily::kChecked;
  while (auto typed = askItemName(services_, &dialog_, kind_.namePrompt)) {
    if (checked && typed->empty()) {
      warn(&dialog_, "Invalid name! Please try again.");
      continue;
    }
    std::string name = nameWithinLimit(*typed, kind_.word, kNameLimit, &dialog_);
    if (!nameFree(name)) { continue; }
    if (!checked || std::ranges::find(list_.items(), name) == list_.items().end()) { return name; }
    warn(&dialog_, "This name already exists! Please enter a different name.");
  }
  return std::nullopt;
}

void DefinitionDialog::remove() {
  const int index = list_.selected();
  if (index < 0 || (kind_.keepsPlaceholder && shownName() == kind_.placeholder)) { return; }
  if (!removalWanted()) { return noteSelection(); }
  removing(shownName());
  store_.remove(kind_.section, index);
  list_.removeItem(index);
  list_.select(std::max(index - 1, 0));
  loadSelected();
}

bool DefinitionDialog::removalWanted() {
  return kind_.deleteQuestion.empty() || ask(&dialog_, about(kind_.deleteQuestion, shownName()), kind_.deleteTitle);
}

// ---- OK -----------------------------------------------------------------------------------------------------

bool DefinitionDialog::confirm() {
  if (!optionsComplete()) { return false; }
  const bool passed = kind_.checksEditsFirst ? settleEdits() && validate() : validate() && settleEdits();
  if (!passed || !drawable()) { return false; }
  accept();
  writeOptions();
  store_.setCurrent(kind_.section, std::max(list_.selected(), 0));
  store_.flush();
  return true;
}

void DefinitionDialog::noteEdit() {
  changed_ = true;
  fieldsChanged();
}

bool DefinitionDialog::refuse(const dialog::Handle& field, std::string_view message) {
  warn(&dialog_, "%s", message);
  field.focus();
  return false;
}

}  // namespace ardenix::mech
