#include "mech/save_changes_dialog.h"

#include "frame/messages.h"

namespace ardenix::mech {

namespace {

// In the order of SaveChoice.
std::vector<dialog::RadioItem> choices() {
  return {{"Save the changes", "Store the edited values under the definition's name"},
          {"Save the changes as a new definition", "Store the edited values under a new name"},
          {"Leave the definition as it was (discard the changes)", "Keep the stored values"}};
}

}  // namespace

SaveChoice askSaveChanges(const Services& services, CWnd* owner, std::string_view title, std::string_view question) {
  dialog::Dialog box{std::string(title)};
  box.enableToolTips(services.toolTips);
  addLabel(box, {.name = "Question"}, std::string(question));
  const dialog::RadioHandle choice = addRadio(box, {.place = {.row = 1}, .name = "Choice"}, choices(), /*chosen=*/-1);
  addOkCancel(box, 2);
  box.onOk = [&] {
    if (choice.chosen() >= 0) { return true; }
    warn(&box, "You must select one of the options!");
    return false;
  };
  const bool accepted = services.mainFrame->RunDialog(box, owner);
  return accepted ? static_cast<SaveChoice>(choice.chosen()) : SaveChoice::kDiscard;
}

}  // namespace ardenix::mech
