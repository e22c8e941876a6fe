#include "host/scripts/transcript.h"

#include "host/files/json_text.h"
#include "host/files/json_writer.h"

namespace brevan {

namespace {

// One event: {"event":KIND, ... } and its line end.
class Event {
 public:
  Event(std::string& lines, std::string_view kind) : lines_(lines), object_(lines) { object_.text("event", kind); }
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  ~Event() {
    object_.close();
    lines_ += '\n';
  }
  JsonObject& object() { return object_; }
  std::string& lines() { return lines_; }

 private:
  std::string& lines_;
  JsonObject object_;
};

std::string_view word(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kWarning: return "warning";
    case BoxIcon::kError: return "error";
    case BoxIcon::kInformation: return "info";
    case BoxIcon::kQuestion: return "question";
  }
  return "";
}

std::string_view word(BoxAnswer answer) {
  switch (answer) {
    case BoxAnswer::kOk: return "ok";
    case BoxAnswer::kYes: return "yes";
    case BoxAnswer::kNo: return "no";
    case BoxAnswer::kCancel: return "cancel";
  }
  return "";
}

template <class Items, class Append>
void appendArray(std::string& out, const Items& items, const Append& append) {
  out += '[';
  bool first = true;
  for (const auto& item : items) {
    if (!first) { out += ','; }
    first = false;
    append(item);
  }
  out += ']';
}

}  // namespace

void Transcript::variableRead(std::string_view name, const double* number, const std::string* text) {
  Event event(lines_, "variable");
  event.object().text("name", name);
  if (number != nullptr) {
    event.object().number("value", *number);
  } else if (text != nullptr) {
    event.object().text("value", *text);
  } else {
    event.object().key("value");
    lines_ += "null";
  }
}

void Transcript::macroSent(std::string_view text) { Event(lines_, "macro").object().text("text", text); }

void Transcript::primitiveAdded(const Drawing& drawing, PrimitiveId id) {
  Event event(lines_, "primitive");
  addPrimitiveMembers(event.object(), drawing, id);
}

void Transcript::pointPrompted(std::string_view prompt, PromptEnd end, Point at) {
  Event event(lines_, "prompt");
  event.object().text("text", prompt).text("answer", end == PromptEnd::kGiven ? "point" : promptEndWord(end));
  if (end == PromptEnd::kGiven) { event.object().point("at", at); }
}

void Transcript::keyPressed(std::string_view key) { Event(lines_, "key").object().text("text", key); }

void Transcript::textPrompted(std::string_view prompt, const TextAnswer& answer) {
  Event event(lines_, "prompt");
  const std::string_view how = answer.end != PromptEnd::kGiven ? promptEndWord(answer.end)
                               : answer.acceptedDefault        ? "accept"
                                                               : "text";
  event.object().text("text", prompt).text("answer", how);
  if (answer.end == PromptEnd::kGiven) { event.object().text("value", answer.text); }
}

void Transcript::messageShown(const MessageBox& box, BoxAnswer answer) {
  Event event(lines_, "message");
  event.object().text("kind", word(box.icon)).text("caption", box.caption).text("text", box.text);
  event.object().text("answer", word(answer));
}

void Transcript::dialogClosed(std::string_view title, bool accepted) {
  Event(lines_, "dialog").object().text("title", title).text("result", accepted ? "OK" : "Cancel");
}

void Transcript::menuChosen(const std::vector<std::string>& items, std::string_view choice) {
  Event event(lines_, "menu");
  event.object().key("items");
  appendArray(lines_, items, [this](const std::string& item) { appendJsonText(lines_, item); });
  event.object().text("choice", choice);
}

void Transcript::chooserAnswered(std::string_view kind, std::string_view answer, std::string_view filter) {
  Event event(lines_, "chooser");
  event.object().text("kind", kind).text("answer", answer);
  if (!filter.empty()) { event.object().text("filter", filter); }
}

void Transcript::focusMoved(std::string_view control) { Event(lines_, "focus").object().text("control", control); }

void Transcript::called(std::string_view name, std::initializer_list<CallArgument> arguments) {
  struct Append {
    std::string& out;
    void operator()(double value) const { appendJsonNumber(out, value); }
    void operator()(int value) const { appendJsonInteger(out, value); }
    void operator()(std::string_view value) const { appendJsonText(out, value); }
  };
  Event event(lines_, "call");
  event.object().text("name", name).key("arguments");
  appendArray(lines_, arguments, [this](const CallArgument& argument) { std::visit(Append{lines_}, argument); });
}

void Transcript::statusShown(std::string_view text) { Event(lines_, "status").object().text("text", text); }

void Transcript::windowOpened(std::string_view name) { Event(lines_, "window").object().text("name", name); }

}  // namespace brevan
