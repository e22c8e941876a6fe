#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "host/scripts/script_cursor.h"
#include "host/window/dialog_fields.h"
#include "host/window/dialog_session.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"
#include "tests/host/core/temporary_folder.h"

// Holds the dialog of a command to its limits: each row of a folder's rules.limits gives a value that just passes OK,
// and one that just fails with its message and brings the focus to the field.

namespace {

namespace fs = std::filesystem;

constexpr const char* kLimitFolders = SOURCE_ROOT "/tests/cases";

struct LimitRow {
  std::string command, field, passes, fails, message, focus;
  std::vector<std::pair<std::string, std::string>> with;  // fields that are set before
  std::string where;
};

// limit FIELD PASSES FAILS MESSAGE [with FIELD VALUE...] [focus FIELD], after a row that names the command.
std::vector<LimitRow> limitsIn(const fs::path& file) {
  const brevan::Script script = brevan::readScript(file.string(), TemporaryFolder::readFile(file.string()));
  const brevan::ScriptCursor cursor(script);
  std::vector<LimitRow> rows;
  std::string command;
  for (const brevan::Statement& statement : script.statements) {
    const auto word = [&](size_t index) { return cursor.string(statement, index); };
    if (statement.name() == "command") {
      command = word(1);
      continue;
    }
    LimitRow row{command, word(1), word(2), word(3),
                 word(4), word(1), {},      file.string() + ':' + std::to_string(statement.line)};
    size_t at = 5;
    if (at < statement.words.size() && word(at) == "with") {
      for (++at; at + 1 < statement.words.size() && word(at) != "focus"; at += 2) {
        row.with.emplace_back(word(at), word(at + 1));
      }
    }
    if (at < statement.words.size()) { row.focus = word(at + 1); }
    rows.push_back(std::move(row));
  }
  return rows;
}

std::vector<fs::path> limitFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(kLimitFolders)) {
    if (entry.path().extension() == ".limits") { files.push_back(entry.path()); }
  }
  return files;
}

// Fills in the command's dialog as a row says, fails, mends it and leaves; every further question is left by Cancel.
class LimitUser : public brevan::SilentUser {
 public:
  explicit LimitUser(const LimitRow& row) : row_(row) {}
  bool visited = false;

  BoxAnswer showMessage(const brevan::MessageBox& box) override {
    messages_.push_back(box.text);
    return box.buttons == BoxButtons::kOk ? BoxAnswer::kOk : BoxAnswer::kNo;
  }
  bool runDialog(dialog::Dialog& dialog) override {
    if (std::exchange(visited, true)) { return false; }
    brevan::DialogSession session(dialog, *this, nullptr);
    session.open();
    for (const auto& [field, value] : row_.with) { put(session, dialog, field, value); }
    put(session, dialog, row_.field, row_.fails);
    EXPECT_EQ(session.press(brevan::controlAt(dialog, "OK")), std::nullopt);
    EXPECT_FALSE(session.closed()) << "it passes, " << row_.fails;
    EXPECT_EQ(messages_, std::vector<std::string>{row_.message});
    EXPECT_EQ(brevan::addressOf(dialog, dialog.focus()), row_.focus);
    messages_.clear();
    put(session, dialog, row_.field, row_.passes);
    session.press(brevan::controlAt(dialog, "OK"));
    EXPECT_TRUE(session.accepted()) << "it fails, " << row_.passes;
    EXPECT_EQ(messages_, std::vector<std::string>{});
    return session.accepted();
  }

 private:
  // A single "-" leaves a field as it is.
  static void put(brevan::DialogSession& session, dialog::Dialog& dialog, const std::string& field,
                  const std::string& value) {
    const int control = brevan::controlAt(dialog, field);
    ASSERT_GE(control, 0) << "no field " << field;
    if (value == "-") { return; }
    const dialog::State& state = dialog.control(control).state;
    const auto refused = std::holds_alternative<dialog::NumberEdit>(state) ? session.setText(control, value)
                         : std::holds_alternative<dialog::CheckBox>(state) ? session.check(control, value == "1")
                                                                           : session.choose(control, value);
    EXPECT_EQ(refused, std::nullopt) << field;
  }

  const LimitRow& row_;
  std::vector<std::string> messages_;
};

class Limits : public ::testing::TestWithParam<fs::path> {};

TEST_P(Limits, ValuesJustPassOrJustFail) {
  const std::string folder = GetParam().parent_path().string();
  for (const LimitRow& row : limitsIn(GetParam())) {
    SCOPED_TRACE(row.where);
    const TemporaryFolder out;
    brevan::FileServices files(folder, BREVAN_DATA, brevan::FileServices::Confinement{out.path(), nullptr});
    INI_LIST settings(out.write("settings.ini", TemporaryFolder::readFile(folder + "/settings.ini")));
    LimitUser user(row);
    brevan::Host host(brevan::HostParts{user, files, settings, nullptr, ""});
    host.loadModule(ARDENIX_MODULE);
    host.runCommand(row.command);
    EXPECT_TRUE(user.visited);
  }
}

INSTANTIATE_TEST_SUITE_P(Commands, Limits, ::testing::ValuesIn(limitFiles()),
                         [](const auto& file) { return file.param.parent_path().filename().string(); });

// A rule of a table that no row breaks may be changed unseen.
TEST(LimitFiles, BreakEveryRule) {
  std::string rows;
  for (const fs::path& file : limitFiles()) { rows += TemporaryFolder::readFile(file.string()); }
  const std::regex begin("constexpr \\w*Rule\\b");
  const std::regex message("\"([^\"]*!)\"");
  int rules = 0;
  for (const char* family : {"mech", "arch"}) {
    for (const auto& entry : fs::directory_iterator(fs::path(SOURCE_ROOT) / family)) {
      const std::string text = TemporaryFolder::readFile(entry.path().string());
      for (std::sregex_iterator table(text.begin(), text.end(), begin), end; table != end; ++table) {
        const std::string rest = text.substr(static_cast<size_t>(table->position()));
        const std::string content = rest.substr(0, rest.find("\n};"));
        for (std::sregex_iterator found(content.begin(), content.end(), message); found != end; ++found, ++rules) {
          EXPECT_NE(rows.find((*found)[1].str()), std::string::npos) << entry.path() << ": " << (*found)[1];
        }
      }
    }
  }
  EXPECT_GE(rules, 45);
}

}  // namespace
