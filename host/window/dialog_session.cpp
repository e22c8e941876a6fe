#include "host/window/dialog_session.h"

#include <algorithm>

#include "frame/host/limits.h"
#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/window/control_kinds.h"
#include "host/window/dialog_fields.h"
#include "host/window/dialog_operations.h"

namespace brevan {

using namespace dialog;

namespace {

void run(const std::function<void()>& rule) {
  if (rule) { rule(); }
}

}  // namespace

DialogSession::DialogSession(Dialog& dialog, User& user, EventSink* events)
    : dialog_(dialog), user_(user), events_(events) {
  dialog_.attach(this);
}

DialogSession::~DialogSession() { dialog_.attach(nullptr); }

void DialogSession::open() {
  dialog_.noteFocus(-1);  // a dialog that is shown again starts anew
  run(dialog_.onOpen);
  if (dialog_.focus() >= 0 || dialog_.closed()) { return; }
  for (int control = 0; control < static_cast<int>(dialog_.controls().size()); ++control) {
    if (!inoperable(control)) { return dialog_.noteFocus(control); }
  }
}

std::string DialogSession::named(int control) { return inQuotes(addressOf(dialog_, control)); }

Refusal DialogSession::perform(const DialogOperation& operation) {
  return operationRow(operation.verb).perform(*this, operation);
}

void DialogSession::tellEdited(int control) { run(dialog_.control(control).onEdit); }

void DialogSession::edited(int control) {
  dialog_.changed(control);
  tellEdited(control);
}

namespace {

// As the field shows the number once it is left.
NumberEdit formattedAsTyped(NumberEdit edit) {
  edit.edited = false;
  edit.value = 0.0;
  if (edit.text.empty()) { return edit; }
  const double typed = *numberText::parseTyped(edit.text);
  edit.text = edit.integer ? numberText::format(edit.format, static_cast<long long>(typed))
                           : numberText::format(edit.format, typed);
  edit.value = numberText::parseTyped(edit.text).value_or(typed);
  return edit;
}

}  // namespace

// ---- Focus -----------------------------------------------------------------------------------------------

void DialogSession::focusMoved(int control, bool) {
  if (events_ != nullptr) { events_->focusMoved(addressOf(dialog_, control)); }
}

Refusal DialogSession::leave() {
  const int control = dialog_.focus();
  if (control < 0) { return std::nullopt; }
  if (auto* edit = std::get_if<NumberEdit>(&dialog_.control(control).state); edit != nullptr && edit->edited) {
    if (auto refusal = refusalOf(addressOf(dialog_, control), *edit)) { return refusal; }
    NumberEdit kept = formattedAsTyped(*edit);
    // The format may round what was typed out of the range.
    if (auto refusal = refusalOf(addressOf(dialog_, control), kept)) { return refusal; }
    *edit = std::move(kept);
    dialog_.changed(control);
  }
  dialog_.noteFocus(-1);
  run(dialog_.control(control).onLeave);
  if (dialog_.focus() >= 0) { return named(dialog_.focus()) + " has taken the focus"; }
  return std::nullopt;
}

// Operating a control begins here: what can be operated takes the focus.
Refusal DialogSession::focus(int control) {
  if (auto refusal = inoperable(control)) { return refusal; }
  if (control == dialog_.focus()) { return std::nullopt; }
  if (auto refusal = leave()) { return refusal; }
  dialog_.noteFocus(control);
  run(dialog_.control(control).onFocus);
  return std::nullopt;
}

bool DialogSession::shown(int control) const { return isShown(dialog_, control); }

Refusal DialogSession::inoperable(int control) {
  const Control& wanted = dialog_.control(control);
  if (!shown(control)) { return named(control) + " is hidden"; }
  if (!wanted.enabled) { return named(control) + " is disabled"; }
  if (!has(wanted.state, kTakesFocus)) { return notThisKind(named(control), wanted.state, "takes no input"); }
  return std::nullopt;
}

// ---- Text ------------------------------------------------------------------------------------------------

Refusal DialogSession::replaceText(int control, const std::string& text) {
  if (auto refusal = typeInto(dialog_.control(control).state, text, named(control))) { return refusal; }
  edited(control);
  return std::nullopt;
}

Refusal DialogSession::setText(int control, const std::string& text) {
  if (auto refusal = focus(control)) { return refusal; }
  const State& state = dialog_.control(control).state;
  if (std::holds_alternative<CheckBox>(state) && (text == "0" || text == "1")) { return check(control, text == "1"); }
  if (has(state, kSetChooses)) { return choose(control, text); }
  if (auto refusal = replaceText(control, text)) { return refusal; }
  return leave();
}

Refusal DialogSession::ensureText(int control, const std::string& text) {
  if (valueText(dialog_.control(control).state) == text) { return std::nullopt; }
  const auto operation = operationThatSets(control, dialog_.control(control).state, text);
  if (!operation) { return notThisKind(named(control), dialog_.control(control).state, "holds no value"); }
  if (auto refusal = showPageOf(control)) { return refusal; }
  return perform(*operation);
}

Refusal DialogSession::showPageOf(int control) {
  const std::string page = pageOf(dialog_, control);
  return page.empty() ? std::nullopt : goToPage(page);
}

Refusal DialogSession::typeText(int control, const std::string& text) {
  if (auto refusal = focus(control)) { return refusal; }
  for (size_t keys = text.empty() ? 0 : 1; keys <= text.size(); ++keys) {
    if (auto refusal = replaceText(control, text.substr(0, keys))) { return refusal; }
  }
  return std::nullopt;
}

Refusal DialogSession::spin(int control, bool up) {
  if (auto refusal = focus(control)) { return refusal; }
  auto* edit = std::get_if<NumberEdit>(&dialog_.control(control).state);
  if (edit == nullptr || !edit->spin) {
    return notThisKind(named(control), dialog_.control(control).state, "has no arrows");
  }
  const double stepped = numberText::parseTyped(edit->text).value_or(edit->value) + (up ? 1.0 : -1.0);
  const double kept = std::clamp(stepped, edit->minimum, edit->maximum);
  return replaceText(control, edit->integer ? numberText::format(edit->format, static_cast<long long>(kept))
                                            : numberText::format(edit->format, kept));
}

// ---- Choices ---------------------------------------------------------------------------------------------

Refusal DialogSession::check(int control, bool checked) {
  if (auto refusal = focus(control)) { return refusal; }
  auto* box = std::get_if<CheckBox>(&dialog_.control(control).state);
  if (box == nullptr) { return notThisKind(named(control), dialog_.control(control).state, "cannot be checked"); }
  if (box->checked == checked) { return std::nullopt; }
  box->checked = checked;
  edited(control);
  return std::nullopt;
}

Refusal DialogSession::choose(int control, const std::string& item) {
  if (auto refusal = focus(control)) { return refusal; }
  if (auto refusal = chooseEntry(dialog_.control(control).state, item, named(control))) { return refusal; }
  edited(control);
  return std::nullopt;
}

Refusal DialogSession::chooseSeveral(int control, const std::vector<std::string>& items) {
  if (auto refusal = focus(control)) { return refusal; }
  if (auto refusal = chooseEntries(dialog_.control(control).state, items, named(control))) { return refusal; }
  edited(control);
  return std::nullopt;
}

Refusal DialogSession::goToPage(const std::string& page) {
  for (int control = 0; control < static_cast<int>(dialog_.controls().size()); ++control) {
    if (std::holds_alternative<Tabs>(dialog_.control(control).state)) { return choose(control, page); }
  }
  return "the dialog has no tabs";
}

// ---- Buttons and menus -----------------------------------------------------------------------------------

Refusal DialogSession::press(int control) {
  const State& state = dialog_.control(control).state;
  const auto* button = std::get_if<Button>(&state);
  if (button != nullptr && button->role == ButtonRole::kCancel) {
    if (auto refusal = inoperable(control)) { return refusal; }
    cancel();  // without leaving the field: what it holds does not matter any more
    return std::nullopt;
  }
  if (auto refusal = focus(control)) { return refusal; }
  if (std::holds_alternative<PenButton>(state)) {
    auto& pen = std::get<PenButton>(dialog_.control(control).state);
    const auto chosen = user_.choosePen(dialog_.control(control).caption, pen.pen);
    if (events_ != nullptr) { events_->chooserAnswered("pen", chosen ? std::to_string(*chosen) : "cancel", ""); }
    if (!chosen) { return std::nullopt; }
    pen.pen = *chosen;
    edited(control);
    return std::nullopt;
  }
  if (button == nullptr) { return notThisKind(named(control), state, "cannot be pressed"); }
  if (button->role == ButtonRole::kOk) { return accept(); }
  if (button->role == ButtonRole::kHelp) {
    help(control);
    return std::nullopt;
  }
  run(dialog_.control(control).onPress);
  return std::nullopt;
}

Refusal DialogSession::accept() {
  if (auto refusal = leave()) { return refusal; }
  if (!dialog_.onOk || dialog_.onOk()) { dialog_.close(true); }
  return std::nullopt;
}

void DialogSession::cancel() {
  if (!dialog_.onCancel || dialog_.onCancel()) { dialog_.close(false); }
}

void DialogSession::help(int control) {
  if (dialog_.onHelp) { dialog_.onHelp(control >= 0 ? control : dialog_.focus()); }
}

Refusal DialogSession::chooseMenu(const std::string& path) {
  const std::vector<MenuItem>* level = nullptr;
  for (Control& control : dialog_.controls()) {
    if (const auto* bar = std::get_if<MenuBar>(&control.state)) { level = &bar->menus; }
  }
  const MenuItem* chosen = nullptr;
  for (size_t start = 0; level != nullptr && start <= path.size();) {
    const size_t end = std::min(path.find('/', start), path.size());
    const std::string name = path.substr(start, end - start);
    const auto found = std::find_if(level->begin(), level->end(), [&name](const MenuItem& item) {
      return equalWithoutCase(plainCaption(item.caption), name);
    });
    if (found == level->end()) { return "the dialog's menu has no entry " + inQuotes(path); }
    chosen = &*found;
    level = &found->items;
    start = end + 1;
  }
  if (chosen == nullptr || !chosen->action) { return "the dialog's menu has no entry " + inQuotes(path); }
  if (!chosen->enabled) { return "the menu entry " + inQuotes(path) + " is disabled"; }
  if (auto refusal = leave()) { return refusal; }
  const auto action = chosen->action;
  action();
  return std::nullopt;
}

}  // namespace brevan
