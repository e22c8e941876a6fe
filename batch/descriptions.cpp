#include "batch/descriptions.h"

#include <array>
#include <filesystem>
#include <optional>
#include <set>

#include "frame/host/dialog_description.h"
#include "host/core/text_encoding.h"
#include "host/window/control_kinds.h"
#include "host/window/dialog_fields.h"
#include "host/window/dialog_session.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"

namespace brevan {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 3> kFamilies = {"mechanical", "architectural", "survey"};

// A folder for the copies of what a command changes while it is looked at.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (fs::temp_directory_path() / "brevan-describe-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) { throw HostFailure("no temporary folder could be made"); }
    path_ = name;
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  [[nodiscard]] std::string path() const { return path_.string(); }

 private:
  fs::path path_;
};

std::string described(dialog::Dialog& dialog) {
  std::string text = "dialog \"" + toUtf8(dialog.title()) + "\"\n";
  for (const FieldLine& line : fieldLines(dialog)) {
    text += (line.item ? "    \"" : "  \"") + toUtf8(line.name) + '"';
    if (!line.kind.empty()) { text += "  " + std::string(line.kind); }
    if (!line.takes.empty()) { text += "  " + toUtf8(line.takes); }
    text += (line.toolTip.empty() ? "" : "  (" + toUtf8(line.toolTip) + ')') + '\n';
  }
  return text;
}

// Looks at every dialog once, presses its plain buttons to see what they open, and leaves by Cancel.
class Looker : public SilentUser {
 public:
  [[nodiscard]] const std::string& text() const { return text_; }

  BoxAnswer showMessage(const MessageBox& box) override {
    return box.buttons == BoxButtons::kOk ? BoxAnswer::kOk : BoxAnswer::kNo;
  }

  bool runDialog(dialog::Dialog& dialog) override {
    DialogSession session(dialog, *this, nullptr);
    session.open();
    if (seen_.insert(dialog.title()).second) {
      text_ += (text_.empty() ? "" : "\n") + described(dialog);
      touchFields(session, dialog);
      pressButtons(session, dialog);
    }
    if (!session.closed()) { session.cancel(); }
    return false;
  }

 private:
  // An edit of a field makes the dialogs that ask about changes appear.
  static void touchFields(DialogSession& session, dialog::Dialog& dialog) {
    for (int index = 0; index < static_cast<int>(dialog.controls().size()); ++index) {
      if (!std::holds_alternative<dialog::NumberEdit>(dialog.control(index).state)) { continue; }
      session.setText(index, valueText(dialog.control(index).state));
    }
  }
  static void pressButtons(DialogSession& session, dialog::Dialog& dialog) {
    for (int index = 0; index < static_cast<int>(dialog.controls().size()) && !session.closed(); ++index) {
      const auto* button = std::get_if<dialog::Button>(&dialog.control(index).state);
      if (button != nullptr && button->role == dialog::ButtonRole::kPlain) { session.press(index); }
    }
  }

  std::string text_;
  std::set<std::string> seen_;
};

}  // namespace

std::string commandList(const Places& places) {
  Looker user;
  FileServices files(places.dataFolder, places.dataFolder);
  INI_LIST settings("");
  Host host(HostParts{user, files, settings, nullptr, places.helpFile});
  host.loadModule(places.module);
  std::string list;
  for (const CommandRow& row : host.module()->commands()) {
    list += std::string(row.name) + '\t' + std::string(kFamilies.at(static_cast<size_t>(row.family))) + '\t' +
            dialog::plainCaption(row.caption) + '\n';
  }
  return list;
}

std::string commandDescription(const std::string& command, const Places& places) {
  const ScratchFolder scratch;
  Looker user;
  FileServices files(places.dataFolder, places.dataFolder, FileServices::Confinement{scratch.path(), nullptr});
  INI_LIST settings("");
  Host host(HostParts{user, files, settings, nullptr, places.helpFile});
  host.loadModule(places.module);
  addFirstSettings(host.module()->commands(), settings);
  Parameters survey;  // what survey commands need, and others do not mind
  survey.setCoordinateSystem(0);
  host.window().drawing().setParameters(survey);
  host.runCommand(command);
  return user.text().empty() ? command + " has no dialog\n" : user.text();
}

}  // namespace brevan
