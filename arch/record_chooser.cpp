#include "arch/record_chooser.h"

#include "arch/item_name.h"
#include "frame/messages.h"
#include "frame/records.h"

namespace ardenix::arch {

void RecordChooser::describe(int group, RecordRules rules) {
  rules_ = std::move(rules);
  list_ = addEditableList(
      dialog_, {.caption = std::string(words_.caption), .toolTip = std::string(words_.listTip), .group = group});
  list_.onEdit([this] {
    if (!list_.typed()) { chooseAnother(); }
  });
  list_.onLeave([this] {
    if (list_.selected() >= 0 && list_.selected() != index_) { chooseAnother(); }
  });
  const auto button = [&](std::string caption, std::string_view toolTip, int column) {
    return addButton(
        dialog_,
        {.caption = std::move(caption), .toolTip = std::string(toolTip), .group = group, .place = {.column = column}});
  };
  button("Add", words_.addTip, 1).onPress([this] { add(); });
  button("Delete", words_.deleteTip, 2).onPress([this] { remove(); });
}

void RecordChooser::open(int number) {
  store_.loadNames(list_, words_.section);
  list_.select(number - 1);
  if (list_.selected() < 0) { list_.select(0); }
  choose();
}

void RecordChooser::choose() {
  index_ = list_.selected();
  rules_.show(number());
}

void RecordChooser::leave() {
  if (rules_.leaving && index_ >= 0) { rules_.leaving(); }
}

void RecordChooser::chooseAnother() {
  leave();
  choose();
}

void RecordChooser::add() {
  if (!rules_.mayBeSaved()) { return; }
  leave();
  const auto name = askNewName(services_, &dialog_, words_.namePrompt);
  if (!name) { return; }
  store_.addRecord(rules_.record(*name), list_, words_.section);
  choose();
}

void RecordChooser::remove() {
  if (index_ < 0 || (rules_.mayBeRemoved && !rules_.mayBeRemoved())) { return; }
  store_.removeRecord(index_, list_, words_.section);
  choose();
}

std::optional<std::string> RecordChooser::nameToSave() const {
  if (index_ < 0) {
    warn(&dialog_, "There is no %s yet. Press Add to save what is shown as the first one.", words_.word);
    return std::nullopt;
  }
  std::string name = asRecordName(list_.text());
  if (!name.empty()) { return name; }
  warn(&dialog_, "Invalid name! Please try again.");
  list_.focus();
  return std::nullopt;
}

}  // namespace ardenix::arch
