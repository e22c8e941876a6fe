#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/core_services.h"
#include "host/geometry/point.h"

namespace dialog {
class Dialog;
}

namespace brevan {

// How the user left a prompt.
enum class PromptEnd { kGiven, kSpace, kEscape, kBack, kKey };

// As scripts and transcripts call the way in which a prompt was left without an answer.
std::string_view promptEndWord(PromptEnd end);

struct PointAnswer {
  PromptEnd end = PromptEnd::kEscape;
  Point at;
  std::string key{};  // which was pressed instead, of those allowed
};

struct TextAnswer {
  PromptEnd end = PromptEnd::kEscape;
  std::string text;
  bool acceptedDefault = false;
};

// What a user is told who types more than a prompt takes.
std::string tooLongAnswer(size_t characters);

// What the answers of a box are called other than Yes and No; empty: as ever.
struct BoxAnswerNames {
  std::string yes;
  std::string no;
};

struct MessageBox {
  std::string text;
  std::string caption;
  BoxIcon icon = BoxIcon::kInformation;
  BoxButtons buttons = BoxButtons::kOk;
  BoxAnswerNames names{};
};

// The name of an answer to the box, where it has one of its own; else "".
std::string_view nameOf(BoxAnswer answer, const MessageBox& box);

struct FileRequest {
  bool open = true;
  bool folder = false;
  std::string title;
  std::string filter;  // "Description|*.ext||"
  std::string defaultExtension;
  std::string initialName;
};

struct ChosenFile {
  std::string path;   // names a file (or folder) as the host's file services take it
  size_t filter = 0;  // of the request's, from 0
};

// Whoever sits before the host: a person at the desktop, or a script. Every question is answered; one that
// cannot be is an error of its own (a script throws ScriptFailure). Texts are Windows-1252.
class User {
 public:
  User() = default;
  User(const User&) = delete;
  User& operator=(const User&) = delete;
  virtual ~User() = default;

  virtual PointAnswer askPoint(const std::string& prompt) = 0;
  virtual TextAnswer askText(const std::string& prompt, const std::string& fallback) = 0;
  // Whether prompts for a text may be left backwards, with PromptEnd::kBack.
  virtual void allowBack(bool) {}
  // The keys that prompts for a point take, with PromptEnd::kKey: a letter in capitals, or "Tab".
  virtual void allowKeys(const std::vector<std::string>&) {}
  // Whether Escape is followed by the question if what is being made is given up.
  virtual bool isAskedToGiveUp() { return false; }
  virtual BoxAnswer showMessage(const MessageBox& box) = 0;
  // The item chosen from 0; nothing when the menu was left.
  virtual std::optional<size_t> chooseFromMenu(const std::vector<std::string>& items) = 0;
  virtual std::optional<ChosenFile> chooseFile(const FileRequest& request) = 0;
  virtual std::optional<int> choosePen(const std::string& title, int pen) = 0;
  // Operates the dialog until it is closed; true for OK.
  virtual bool runDialog(dialog::Dialog& dialog) = 0;
  virtual void showSideBar(bool) {}
  virtual void showStatus(const std::string& text) = 0;
  virtual void showPrompt(const std::string& text) = 0;
  // Called often on long work; may throw to cancel it.
  virtual void showProgress(int done, int total, const std::string& text) = 0;
  // The same of work that ends by itself when it is cancelled; true then.
  virtual bool stopsAtProgress(int done, int total, const std::string& text) {
    showProgress(done, total, text);
    return false;
  }
};

}  // namespace brevan
