#include <algorithm>

#include "frame/host/core_services.h"
#include "frame/host/limits.h"
#include "host/macros/command.h"
#include "host/window/drawing_window.h"

// What the view asks of the user, and the macro language.
namespace brevan {

namespace {

// "&No Rotation, Rotate &90": items at commas, without marks and outer blanks.
std::vector<std::string> menuItems(std::string_view items) {
  std::vector<std::string> list;
  for (size_t start = 0; start <= items.size();) {
    const size_t end = std::min(items.find(',', start), items.size());
    std::string item(items.substr(start, end - start));
    std::erase(item, '&');
    const size_t first = item.find_first_not_of(' ');
    list.push_back(first == std::string::npos ? "" : item.substr(first, item.find_last_not_of(' ') - first + 1));
    start = end + 1;
  }
  return list;
}

}  // namespace

std::string_view promptEndWord(PromptEnd end) {
  switch (end) {
    case PromptEnd::kSpace: return "space";
    case PromptEnd::kBack: return "back";
    case PromptEnd::kKey: return "key";
    case PromptEnd::kGiven:
    case PromptEnd::kEscape: break;
  }
  return "escape";
}

std::string_view nameOf(BoxAnswer answer, const MessageBox& box) {
  if (answer == BoxAnswer::kYes) { return box.names.yes; }
  return answer == BoxAnswer::kNo ? std::string_view(box.names.no) : std::string_view();
}

std::string tooLongAnswer(size_t characters) {
  return "An answer takes " + std::to_string(limits::kLongestAnswer) + " characters at most, this one has " +
         std::to_string(characters) + ".";
}

// Brings it through the cursor; nothing when the prompt was left.
std::optional<Point> DrawingWindow::take(std::string_view prompt, const PointAnswer& answer) {
  const bool given = answer.end == PromptEnd::kGiven;
  const Point at = given ? cursor_.give(answer.at, drawing_) : cursor_.position();
  if (given && !isFinite(at)) { throw HostFailure("A point's coordinates must be finite numbers."); }
  escaped_ = escaped_ || answer.end == PromptEnd::kEscape;
  if (services_.events != nullptr) { services_.events->pointPrompted(prompt, answer.end, at); }
  return given ? std::optional(at) : std::nullopt;
}

int DrawingWindow::gsGetPointFromUser(std::string_view prompt, double& x, double& y) {
  const auto at = take(prompt, services_.user.askPoint(std::string(prompt)));
  if (!at) { return 1; }
  x = at->x;
  y = at->y;
  return 0;
}

namespace {

// The keys are allowed as long as this lives.
class KeysOfPrompt {
 public:
  KeysOfPrompt(User& user, const std::vector<std::string>& keys) : user_(user) { user_.allowKeys(keys); }
  KeysOfPrompt(const KeysOfPrompt&) = delete;
  KeysOfPrompt& operator=(const KeysOfPrompt&) = delete;
  ~KeysOfPrompt() { user_.allowKeys({}); }

 private:
  User& user_;
};

}  // namespace

std::optional<Point> DrawingWindow::askPoint(std::string_view prompt, const std::vector<std::string>& keys,
                                             const std::function<void(std::string_view key)>& pressed) {
  const KeysOfPrompt allowed(services_.user, keys);
  while (true) {
    const PointAnswer answer = services_.user.askPoint(std::string(prompt));
    if (answer.end != PromptEnd::kKey) { return take(prompt, answer); }
    if (services_.events != nullptr) { services_.events->keyPressed(answer.key); }
    pressed(answer.key);
  }
}

void DrawingWindow::gsGetTextFromPromptBar(std::string_view prompt, std::string& text, int) {
  TextAnswer answer = services_.user.askText(std::string(prompt), text);
  escaped_ = escaped_ || answer.end == PromptEnd::kEscape;
  back_ = answer.end == PromptEnd::kBack;
  if (answer.end != PromptEnd::kGiven) { answer.text.clear(); }
  if (answer.text.size() > limits::kLongestAnswer) { throw HostFailure(tooLongAnswer(answer.text.size())); }
  text = answer.text;
  if (services_.events != nullptr) { services_.events->textPrompted(prompt, answer); }
}

void DrawingWindow::gsAllowBack(int on) { services_.user.allowBack(on != 0); }

int DrawingWindow::gsBackPressed() { return back_ ? 1 : 0; }

int DrawingWindow::gsGivesUp(std::string_view question) {
  return services_.user.isAskedToGiveUp() ? gsReply(question) : 0;
}

BoxAnswer DrawingWindow::ask(const MessageBox& box) {
  const BoxAnswer answer = services_.user.showMessage(box);
  if (services_.events != nullptr) { services_.events->messageShown(box, answer); }
  return answer;
}

int DrawingWindow::gsReply(std::string_view question) {
  const MessageBox box{std::string(question), "", BoxIcon::kQuestion, BoxButtons::kYesNo};
  return ask(box) == BoxAnswer::kYes ? 1 : 0;
}

int DrawingWindow::gsReply(std::string_view question, const AnswerNames& names) {
  const MessageBox box{std::string(question),
                       "",
                       BoxIcon::kQuestion,
                       BoxButtons::kYesNoCancel,
                       {std::string(names.yes), std::string(names.no)}};
  const BoxAnswer answer = ask(box);
  escaped_ = escaped_ || answer == BoxAnswer::kCancel;
  return answer == BoxAnswer::kYes ? 1 : 0;
}

int DrawingWindow::gsSubMenu(std::string_view items) {
  const std::vector<std::string> list = menuItems(items);
  const auto choice = services_.user.chooseFromMenu(list);
  if (services_.events != nullptr) { services_.events->menuChosen(list, choice ? list.at(*choice) : ""); }
  return choice ? static_cast<int>(*choice) + 1 : 0;
}

int DrawingWindow::gsEscapePressed() { return escaped_ ? 1 : 0; }

void DrawingWindow::gsSetPrompt(std::string_view text) {
  services_.user.showPrompt(std::string(text));
  call("gsSetPrompt", {text});
}

void DrawingWindow::gsSetStatus(std::string_view text) {
  services_.user.showStatus(std::string(text));
  if (services_.events != nullptr) { services_.events->statusShown(text); }
}

void DrawingWindow::gsSetProgress(int done, int total, std::string_view text) {
  services_.user.showProgress(done, total, std::string(text));
}

int DrawingWindow::gsStopsAtProgress(int done, int total, std::string_view text) {
  escaped_ = services_.user.stopsAtProgress(done, total, std::string(text)) || escaped_;
  return gsEscapePressed();
}

void DrawingWindow::gsCursorWait(int on) { call("gsCursorWait", {on}); }

void DrawingWindow::gsSetCursorHold(int on) {
  cursor_.hold(on != 0);
  call("gsSetCursorHold", {on});
}

void DrawingWindow::gsSetRubberBand(int on) {
  cursor_.setRubberBand(on != 0);
  call("gsSetRubberBand", {on});
}

void DrawingWindow::gsSetSnapMode(int mode) {
  cursor_.setSnapMode(mode);
  call("gsSetSnapMode", {mode});
}

void DrawingWindow::gsCursorSnapPoint(int on) {
  cursor_.snapToNear(on != 0);
  call("gsCursorSnapPoint", {on});
}

void DrawingWindow::gsGetCurrCoord(double& x, double& y) {
  x = cursor_.position().x;
  y = cursor_.position().y;
}

void DrawingWindow::gsSetCurrCoord(double x, double y) {
  if (!isFinite(Point{x, y})) { throw HostFailure("The cursor cannot go to a coordinate that is not finite."); }
  cursor_.setPosition({x, y});
  call("gsSetCurrCoord", {x, y});
}

int DrawingWindow::gsSetupPenDialog(std::string_view title, int& pen) {
  const auto chosen = services_.user.choosePen(std::string(title), pen);
  if (services_.events != nullptr) {
    services_.events->chooserAnswered("pen", chosen ? std::to_string(*chosen) : "cancel", "");
  }
  if (!chosen) { return 0; }
  pen = *chosen;
  return 1;
}

int DrawingWindow::gsExecuteMacro(std::string_view text) {
  if (services_.events != nullptr) { services_.events->macroSent(text); }
  try {
    executeMacro(*this, services_.variables, text);
    return 1;
  } catch (const MacroError& error) {
    gsSetStatus(std::string(text) + ": column " + std::to_string(error.column()) + ": " + error.what());
    return 0;
  }
}

int DrawingWindow::gsGetMacVar(std::string_view name, double& value) {
  const auto found = services_.variables.number(name);
  value = found.value_or(0.0);
  return found ? 1 : 0;
}

int DrawingWindow::gsGetMacStrVar(std::string_view name, char* buffer, int size) {
  const std::string* found = services_.variables.text(name);
  coreStrncpy(buffer, found != nullptr ? std::string_view(*found) : std::string_view(), size);
  return found != nullptr ? 1 : 0;
}

void DrawingWindow::gsSetMacStrVar(std::string_view name, std::string_view text) {
  services_.variables.setText(name, text);
  call("gsSetMacStrVar", {name, text});
}

}  // namespace brevan
