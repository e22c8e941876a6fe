#pragma once

#include <stdexcept>
#include <string>
#include <variant>

#include "host/window/dialog_session.h"
#include "host/window/silent_user.h"

namespace bench {

// Confirms every dialog, after a button of it where one is named, answers questions by yes and files by the one given.
class YesUser : public brevan::SilentUser {
 public:
  std::string pressed;
  std::string file;

  BoxAnswer showMessage(const brevan::MessageBox& box) override {
    if (box.buttons == BoxButtons::kOk && box.icon == BoxIcon::kError) { throw std::logic_error(box.text); }
    return BoxAnswer::kYes;
  }
  std::optional<brevan::ChosenFile> chooseFile(const brevan::FileRequest&) override { return brevan::ChosenFile{file}; }
  bool runDialog(dialog::Dialog& dialog) override {
    brevan::DialogSession session(dialog, *this, nullptr);
    session.open();
    for (int control = 0; control < static_cast<int>(dialog.controls().size()); ++control) {
      const auto* button = std::get_if<dialog::Button>(&dialog.control(control).state);
      if (button != nullptr && dialog.control(control).caption == pressed) { session.press(control); }
    }
    for (int control = 0; !session.closed(); ++control) {
      const auto* button = std::get_if<dialog::Button>(&dialog.control(control).state);
      if (button != nullptr && button->role == dialog::ButtonRole::kOk) { session.press(control); }
    }
    return session.accepted();
  }
};

}  // namespace bench
