#include "host/scripts/script_user.h"

#include <algorithm>
#include <array>

#include "frame/host/limits.h"
#include "host/core/text_encoding.h"
#include "host/scripts/dialog_statements.h"
#include "host/window/file_filters.h"

namespace brevan {

std::string onOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) { line += c == '\n' ? "\\n" : std::string(1, c); }
  return line;
}

namespace {

std::string quotedUtf8(std::string_view windows1252) { return '"' + toUtf8(windows1252) + '"'; }

std::string titles(const std::vector<std::string>& items) {
  std::string all;
  for (const std::string& item : items) { all += (all.empty() ? "" : ", ") + quotedUtf8(item); }
  return all;
}

std::string descriptions(const std::vector<FileFilter>& filters) {
  std::vector<std::string> all(filters.size());
  std::ranges::transform(filters, all.begin(), &FileFilter::description);
  return all.empty() ? "none" : titles(all);
}

std::string commaSeparated(const std::vector<std::string>& items) {
  std::string all;
  for (const std::string& item : items) { all += (all.empty() ? "" : ",") + item; }
  return all;
}

// A menu is expected by its items, "Bolt,Nut,Washer", or by its first one.
bool isExpected(const std::string& wanted, std::string_view kind, const std::string& shown) {
  return wanted == shown || wanted == onOneLine(shown) || wanted == "*" ||
         (kind == "menu" && shown.starts_with(wanted + ','));
}

struct ReplyRow {
  std::string_view word;
  BoxAnswer answer;
};
constexpr std::array<ReplyRow, 4> kReplies = {
    {{"yes", BoxAnswer::kYes}, {"no", BoxAnswer::kNo}, {"cancel", BoxAnswer::kCancel}, {"ok", BoxAnswer::kOk}}};

std::string repliesTo(const MessageBox& box) {
  if (box.names.yes.empty()) { return "yes or no"; }
  return quotedUtf8(box.names.yes) + " or " + quotedUtf8(box.names.no);
}

bool offers(BoxButtons buttons, BoxAnswer answer) {
  if (buttons == BoxButtons::kOk) { return answer == BoxAnswer::kOk; }
  return answer == BoxAnswer::kYes || answer == BoxAnswer::kNo ||
         (buttons == BoxButtons::kYesNoCancel && answer == BoxAnswer::kCancel);
}

}  // namespace

// ---- Expectations ------------------------------------------------------------------------------------------

void ScriptUser::readExpectations(std::string_view kind, const std::string& text) {
  if (checkStop) { checkStop(); }
  while (cursor_.nextIs("expect")) {
    const Statement& statement = *cursor_.peek();
    const std::string what = statement.words.size() > 1 ? statement.words[1].text : "";
    const bool ofThisKind = !statement.words.back().quoted || statement.words.size() != 3 || what == kind;
    const bool other = !ofThisKind && (what == "prompt" || what == "message" || what == "dialog" || what == "menu");
    if (other) { cursor_.failHere("the command shows the " + std::string(kind) + ' ' + quotedUtf8(text)); }
    cursor_.take();
    if (what == kind && statement.words.size() == 3) {
      if (!isExpected(statement.words[2].text, kind, text)) {
        cursor_.fail(statement, "the " + std::string(kind) + " is " + quotedUtf8(text) + ", the script expects " +
                                    quotedUtf8(statement.words[2].text));
      }
      if (kind == "message") { return; }
      continue;
    }
    expectNow(statement, nullptr, nullptr);
  }
}

void ScriptUser::expectNow(const Statement& statement, DialogSession* session, dialog::Dialog* dialog) {
  cursor_.expectWords(statement, 2, 100);
  const std::string& what = cursor_.string(statement, 1);
  const bool bare = !statement.words[1].quoted;
  if (bare && what == "status") {
    cursor_.expectWords(statement, 3, 3);
    if (cursor_.string(statement, 2) != status_) {
      cursor_.fail(statement, "the status is " + quotedUtf8(status_) + ", the script expects " +
                                  quotedUtf8(statement.words[2].text));
    }
  } else if (bare && what == "no") {
    cursor_.expectWords(statement, 3, 3);
    if (cursor_.string(statement, 2) != "message") { cursor_.fail(statement, "expect no is followed by message"); }
    if (messagesSince_ > 0) { cursor_.fail(statement, "there was the message " + quotedUtf8(lastMessage_)); }
  } else if (bare && what == "dialog" && dialog != nullptr) {
    cursor_.expectWords(statement, 3, 3);
    if (!isExpected(cursor_.string(statement, 2), what, dialog->title())) {
      cursor_.fail(statement, "the dialog is " + quotedUtf8(dialog->title()) + ", the script expects " +
                                  quotedUtf8(statement.words[2].text));
    }
  } else if (bare && (what == "prompt" || what == "message" || what == "dialog" || what == "menu")) {
    cursor_.fail(statement, "the script expects a " + what + ", there is none");
  } else if (dialog != nullptr) {
    expectControl(cursor_, statement, *session, *dialog);
  } else {
    cursor_.fail(statement, "no dialog is open in which a control could be looked at");
  }
}

const Statement& ScriptUser::takeAnswer(std::string_view asked) {
  if (cursor_.peek() == nullptr) { cursor_.failHere(std::string(asked)); }
  noteProgress();
  return cursor_.take();
}

// ---- Prompts -------------------------------------------------------------------------------------------------

PointAnswer ScriptUser::askPoint(const std::string& prompt) {
  readExpectations("prompt", prompt);
  if (cursor_.nextIs("point")) {
    const Statement& answer = takeAnswer("");
    cursor_.expectWords(answer, 3, 3);
    return {PromptEnd::kGiven, cursor_.point(answer, 1)};
  }
  if (cursor_.nextIs("space") || cursor_.nextIs("escape")) {
    return {takeAnswer("").name() == "space" ? PromptEnd::kSpace : PromptEnd::kEscape, {}};
  }
  if (cursor_.nextIs("key") && !keys_.empty()) { return pressedKey(); }
  cursor_.failHere(quotedUtf8(prompt) + " asks for a point");
}

PointAnswer ScriptUser::pressedKey() {
  const Statement& answer = takeAnswer("");
  cursor_.expectWords(answer, 2, 2);
  const std::string& key = cursor_.string(answer, 1);
  if (std::ranges::find(keys_, key) == keys_.end()) {
    cursor_.fail(answer, "this prompt takes the keys " + titles(keys_) + ", the script gave " + quotedUtf8(key));
  }
  return {PromptEnd::kKey, {}, key};
}

TextAnswer ScriptUser::askText(const std::string& prompt, const std::string& fallback) {
  readExpectations("prompt", prompt);
  if (cursor_.nextIs("text")) {
    const Statement& answer = takeAnswer("");
    cursor_.expectWords(answer, 2, 2);
    const std::string& typed = cursor_.string(answer, 1);
    if (typed.size() > limits::kLongestAnswer) { cursor_.fail(answer, tooLongAnswer(typed.size())); }
    return {PromptEnd::kGiven, typed, false};
  }
  if (cursor_.nextIs("accept")) {
    takeAnswer("");
    return {PromptEnd::kGiven, fallback, true};
  }
  if (cursor_.nextIs("space") || cursor_.nextIs("escape")) {
    return {takeAnswer("").name() == "space" ? PromptEnd::kSpace : PromptEnd::kEscape, {}, false};
  }
  if (mayGoBack_ && cursor_.nextIs("back")) {
    takeAnswer("");
    return {PromptEnd::kBack, {}, false};
  }
  cursor_.failHere(quotedUtf8(prompt) + " asks for a text");
}

std::optional<size_t> ScriptUser::chooseFromMenu(const std::vector<std::string>& items) {
  readExpectations("menu", commaSeparated(items));
  if (cursor_.nextIs("cancel") || cursor_.nextIs("escape")) {
    takeAnswer("");
    return std::nullopt;
  }
  if (!cursor_.nextIs("menu")) { cursor_.failHere("the command shows a menu with " + titles(items)); }
  const Statement& answer = takeAnswer("");
  cursor_.expectWords(answer, 2, 2);
  const auto chosen = std::find(items.begin(), items.end(), cursor_.string(answer, 1));
  if (chosen == items.end()) {
    cursor_.fail(answer, "the menu has no item " + quotedUtf8(answer.words[1].text) + ", it has " + titles(items));
  }
  return static_cast<size_t>(chosen - items.begin());
}

// ---- Boxes and choosers ----------------------------------------------------------------------------------------

BoxAnswer ScriptUser::showMessage(const MessageBox& box) {
  const bool awaited = cursor_.nextIs("expect") && cursor_.peek()->words.size() == 3 &&
                       cursor_.peek()->words[1].text == "message" && !cursor_.peek()->words[1].quoted;
  if (awaited) { readExpectations("message", box.text); }
  lastMessage_ = box.text;
  if (!awaited) { ++messagesSince_; }
  if (box.buttons == BoxButtons::kOk) {
    const bool acknowledged =
        cursor_.nextIs("reply") && cursor_.peek()->words.size() == 2 && cursor_.peek()->words[1].text == "ok";
    if (acknowledged) { cursor_.take(); }
    reportCount();
    if (!awaited && report) { report(toUtf8(box.text)); }
    return BoxAnswer::kOk;
  }
  readExpectations("message", box.text);
  if (!cursor_.nextIs("reply")) { cursor_.failHere("the question " + quotedUtf8(box.text) + " waits for a reply"); }
  const Statement& answer = takeAnswer("");
  cursor_.expectWords(answer, 2, 2);
  for (const BoxAnswer named : {BoxAnswer::kYes, BoxAnswer::kNo}) {
    if (!nameOf(named, box).empty() && cursor_.string(answer, 1) == nameOf(named, box)) { return named; }
  }
  const auto row = std::find_if(kReplies.begin(), kReplies.end(),
                                [&](const ReplyRow& reply) { return reply.word == cursor_.string(answer, 1); });
  if (row == kReplies.end() || !offers(box.buttons, row->answer)) {
    cursor_.fail(answer, "the question " + quotedUtf8(box.text) + " takes " + repliesTo(box) +
                             (box.buttons == BoxButtons::kYesNoCancel ? " or cancel" : "") +
                             ", the script gave: " + answer.shown());
  }
  return row->answer;
}

std::optional<ChosenFile> ScriptUser::chooseFile(const FileRequest& request) {
  const std::string asked = request.folder ? "a folder" : request.open ? "a file to open" : "a file to save";
  readExpectations("chooser", asked);
  if (cursor_.nextIs("cancel")) {
    takeAnswer("");
    return std::nullopt;
  }
  if (!cursor_.nextIs("file")) { cursor_.failHere("the command asks for " + asked); }
  const Statement& answer = takeAnswer("");
  const bool named = answer.words.size() == 4 && answer.words[2].text == "as" && !answer.words[2].quoted;
  if (answer.words.size() != 2 && !named) { cursor_.fail(answer, "file expects a path, or a path, as and a filter"); }
  const std::vector<FileFilter> filters = fileFilters(request.filter);
  const std::string& path = cursor_.string(answer, 1);
  const auto filter = named ? filterNamed(filters, cursor_.string(answer, 3)) : filterListing(filters, path);
  if (!filter) {
    cursor_.fail(answer, "the chooser has no filter " + quotedUtf8(cursor_.string(answer, 3)) + ", it has " +
                             descriptions(filters));
  }
  return ChosenFile{path, *filter};
}

std::optional<int> ScriptUser::choosePen(const std::string& title, int) {
  readExpectations("chooser", title);
  if (cursor_.nextIs("cancel")) {
    takeAnswer("");
    return std::nullopt;
  }
  if (!cursor_.nextIs("pen")) { cursor_.failHere("the command asks for a pen"); }
  const Statement& answer = takeAnswer("");
  cursor_.expectWords(answer, 2, 2);
  const int pen = cursor_.integer(answer, 1);
  if (!limits::kPens.contains(pen)) {
    cursor_.fail(answer, "a pen is " + limits::kPens.text() + ", got " + std::to_string(pen));
  }
  return pen;
}

// ---- Dialogs ---------------------------------------------------------------------------------------------------

bool ScriptUser::runDialog(dialog::Dialog& dialog) {
  readExpectations("dialog", dialog.title());
  if (!cursor_.nextIs("dialog")) { cursor_.failHere("the command shows the dialog " + quotedUtf8(dialog.title())); }
  const Statement& statement = takeAnswer("");
  cursor_.expectWords(statement, 2, 2);
  const std::string& title = cursor_.string(statement, 1);
  if (title != dialog.title() && title != "*") {
    cursor_.fail(statement, "the dialog is " + quotedUtf8(dialog.title()) + ", the script gave: " + statement.shown());
  }
  DialogSession session(dialog, *this, events_);
  session.open();
  while (!session.closed()) { operate(session, dialog); }
  return session.accepted();
}

void ScriptUser::operate(DialogSession& session, dialog::Dialog& dialog) {
  if (checkStop) { checkStop(); }
  const Statement* next = cursor_.peek();
  const OperationRow* row = next == nullptr ? nullptr : operationNamed(next->name());
  if (row == nullptr && (next == nullptr || next->name() != "expect")) {
    const std::string said = lastMessage_.empty() ? "" : " (it said " + quotedUtf8(lastMessage_) + ')';
    cursor_.failHere("the dialog " + quotedUtf8(dialog.title()) + " is open" + said);
  }
  const Statement& statement = cursor_.take();
  if (row == nullptr) {
    expectNow(statement, &session, &dialog);
    return;
  }
  noteProgress();
  lastMessage_.clear();
  const DialogSession::Refusal refusal = session.perform(readOperation(cursor_, statement, *row, dialog));
  if (!refusal) { return; }
  const bool awaited = cursor_.nextIs("expect") && cursor_.peek()->words.size() == 3 &&
                       cursor_.peek()->words[1].text == "message" && cursor_.peek()->words[2].text == *refusal;
  if (!awaited) { cursor_.fail(statement, toUtf8(*refusal)); }
  cursor_.take();
}

namespace {

std::string withoutDigits(std::string text) {
  std::erase_if(text, [](char c) { return c >= '0' && c <= '9'; });
  return text;
}

}  // namespace

void ScriptUser::showStatus(const std::string& text) {
  const bool countsOn = text != status_ && withoutDigits(text) == withoutDigits(status_);
  if (!countsOn) {
    reportCount();
    if (report) { report(toUtf8(text)); }
  }
  counting_ = countsOn;
  status_ = text;
}

void ScriptUser::reportCount() {
  if (counting_ && report) { report(toUtf8(status_)); }
  counting_ = false;
}

void ScriptUser::noteProgress() {
  messagesSince_ = 0;
  reportCount();
}

void ScriptUser::showProgress(int, int, const std::string&) {
  if (checkStop) { checkStop(); }
}

}  // namespace brevan
