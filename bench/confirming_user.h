#pragma once

#include <stdexcept>

#include "host/window/dialog_session.h"
#include "host/window/silent_user.h"

namespace bench {

// Confirms every dialog and every question; a message is a fault.
class ConfirmingUser : public brevan::SilentUser {
 public:
  BoxAnswer showMessage(const brevan::MessageBox& box) override {
    if (box.buttons == BoxButtons::kOk) { throw std::logic_error(box.text); }
    return BoxAnswer::kYes;
  }
  bool runDialog(dialog::Dialog& dialog) override {
    brevan::DialogSession session(dialog, *this, nullptr);
    session.open();
    for (int control = 0; !session.closed(); ++control) {
      const auto* button = std::get_if<dialog::Button>(&dialog.control(control).state);
      if (button != nullptr && button->role == dialog::ButtonRole::kOk) { session.press(control); }
    }
    return session.accepted();
  }
};

}  // namespace bench
