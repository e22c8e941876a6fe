#pragma once

#include <string>
#include <string_view>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix {

// A warning box with the exclamation icon under the application's title. The format, in printf
// notation, is the program's own text; a user's text goes in as an argument.
template <class... Arguments>
void warn(CWnd* owner, std::string_view format, const Arguments&... arguments) {
  coreMessageBox(owner, numberText::format(format, arguments...), "", BoxIcon::kWarning, BoxButtons::kOk);
}

// A question box; an empty caption stands for the application's title.
inline bool ask(CWnd* owner, std::string_view question, std::string_view caption) {
  return coreMessageBox(owner, question, caption, BoxIcon::kQuestion, BoxButtons::kYesNo) == BoxAnswer::kYes;
}

}  // namespace ardenix
