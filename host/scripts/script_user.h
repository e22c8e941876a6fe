#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/scripts/script_cursor.h"
#include "host/window/dialog_session.h"
#include "host/window/events.h"
#include "host/window/user.h"

namespace brevan {

// As a script writes it: line breaks as "\n".
std::string onOneLine(std::string_view text);

// A user made of a script's answers, taken in order. An answer of the wrong kind, and a question that the
// script does not answer, throw ScriptFailure through the running command.
class ScriptUser : public User {
 public:
  ScriptUser(ScriptCursor& cursor, EventSink* events) : cursor_(cursor), events_(events) {}

  // Is given what the host has to say beside its questions; UTF-8.
  std::function<void(const std::string& text)> report;
  // Throws to stop the script (a signal, a budget).
  std::function<void()> checkStop;

  // `expect` outside of any question: what is known at a command's end or within a dialog.
  void expectNow(const Statement& statement, DialogSession* session, dialog::Dialog* dialog);
  // Called before each statement that is no `expect`, and when a script has been played.
  void noteProgress();

  PointAnswer askPoint(const std::string& prompt) override;
  TextAnswer askText(const std::string& prompt, const std::string& fallback) override;
  void allowBack(bool allowed) override { mayGoBack_ = allowed; }
  void allowKeys(const std::vector<std::string>& keys) override { keys_ = keys; }
  bool isAskedToGiveUp() override { return cursor_.nextIs("reply"); }
  BoxAnswer showMessage(const MessageBox& box) override;
  std::optional<size_t> chooseFromMenu(const std::vector<std::string>& items) override;
  std::optional<ChosenFile> chooseFile(const FileRequest& request) override;
  std::optional<int> choosePen(const std::string& title, int pen) override;
  bool runDialog(dialog::Dialog& dialog) override;
  void showStatus(const std::string& text) override;
  void showPrompt(const std::string&) override {}
  void showProgress(int done, int total, const std::string& text) override;

 private:
  // Reads the `expect` statements before an answer; `kind` is what was asked, `text` its wording.
  void readExpectations(std::string_view kind, const std::string& text);
  const Statement& takeAnswer(std::string_view asked);
  PointAnswer pressedKey();
  void operate(DialogSession& session, dialog::Dialog& dialog);

  ScriptCursor& cursor_;
  EventSink* events_;
  // Says where a status that counted on came to; of a count only the first and the last are reported.
  void reportCount();

  std::string status_;
  bool counting_ = false;
  bool mayGoBack_ = false;
  std::vector<std::string> keys_;
  std::string lastMessage_;
  int messagesSince_ = 0;
};

}  // namespace brevan
