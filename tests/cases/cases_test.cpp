#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <regex>
#include <span>
#include <sstream>

#include "host/core/ini_file.h"
#include "host/core/text_encoding.h"
#include "host/scripts/script_player.h"
#include "tests/cases/drawn_things.h"
#include "tests/host/core/temporary_folder.h"

// Plays every script of a folder of commands as `brevan-batch run --settings settings.ini` does, and compares with the
// expected file beside it. README.md says what its lines are.

namespace {

namespace fs = std::filesystem;
using brevan::ScriptCursor;
using brevan::Statement;

constexpr const char* kCases = SOURCE_ROOT "/tests/cases";

std::vector<fs::path> entries(const fs::path& folder, const std::string& ending) {
  std::vector<fs::path> all;
  for (const auto& entry : fs::directory_iterator(folder)) {
    const bool wanted = ending.empty() ? entry.is_directory() : entry.path().extension() == ending;
    if (wanted) { all.push_back(entry.path()); }
  }
  std::ranges::sort(all);
  return all;
}

std::vector<fs::path> allScripts() {
  std::vector<fs::path> all;
  for (const fs::path& folder : entries(kCases, "")) { std::ranges::copy(entries(folder, ".scr"), back_inserter(all)); }
  return all;
}

fs::path expectedOf(const fs::path& script) { return fs::path(script).replace_extension(".expected"); }
std::string textOf(const fs::path& path) { return TemporaryFolder::readFile(path.string()); }

// A line "#play NAME" stands for the lines of NAME.part in the script's folder.
std::string withParts(const fs::path& script) {
  std::istringstream lines(textOf(script));
  std::string all;
  for (std::string line; std::getline(lines, line);) {
    constexpr std::string_view kPlay = "#play ";
    const bool part = line.starts_with(kPlay);
    all += part ? textOf(script.parent_path() / (line.substr(kPlay.size()) + ".part")) : line + '\n';
  }
  return all;
}

// A script whose first line is "#for WORD WORD..." is played for each of the words: the word stands for EACH, and AT is
// 0 for the first, 100 for the second and so on.
std::string unrolled(const std::string& text) {
  constexpr std::string_view kFor = "#for ";
  if (!text.starts_with(kFor)) { return text; }
  std::istringstream words(text.substr(kFor.size(), text.find('\n') - kFor.size()));
  std::string all;
  int at = 0;
  for (std::string word; words >> word; at += 100) {
    const std::string once = std::regex_replace(text.substr(text.find('\n')), std::regex("\\bEACH\\b"), word);
    all += std::regex_replace(once, std::regex("\\bAT\\b"), std::to_string(at));
  }
  return all;
}

bool isMessage(const Statement& statement) {
  return statement.name() == "expect" && statement.words.size() == 3 && !statement.words[1].quoted &&
         statement.words[1].text == "message";
}

// The transcript, and the messages by themselves; a question needs its reply anyway.
class Record : public brevan::Transcript {
 public:
  std::vector<std::string> messages;
  void messageShown(const brevan::MessageBox& box, BoxAnswer answer) override {
    if (box.buttons == BoxButtons::kOk) { messages.push_back(box.text); }
    Transcript::messageShown(box, answer);
  }
};

class Case : public ::testing::TestWithParam<fs::path> {
 protected:
  // Why the script could not be played to its end, "" where it could.
  std::string play() {
    try {
      player_.play();
    } catch (const brevan::ScriptFailure& failure) { return failure.what(); }
    return "";
  }

  // A rule that speaks up where it should not is a fault, too.
  void expectNoOtherMessage() const {
    auto next = script_.statements.begin();
    for (const std::string& message : record_.messages) {
      next = std::find_if(next, script_.statements.end(), [&](const Statement& statement) {
        return isMessage(statement) && statement.words[2].text == message;
      });
      ASSERT_NE(next, script_.statements.end()) << "the script does not expect the message \"" << message << '"';
      ++next;
    }
  }

  // Compares with the expected file, once the script has ended as it says.
  void compare(const std::string& failure) {
    const std::string lines = fs::exists(expectedOf(GetParam())) ? textOf(expectedOf(GetParam())) : "";
    const brevan::Script expected = brevan::readScript(expectedOf(GetParam()).string(), withoutEvents(lines));
    const ScriptCursor cursor(expected);
    const auto fails = std::ranges::find(expected.statements, "fails", &Statement::name);
    const bool asExpected = fails == expected.statements.end()
                                ? failure.empty()
                                : failure.find(brevan::toUtf8(cursor.string(*fails, 1))) != std::string::npos;
    ASSERT_TRUE(asExpected) << "it ends with: " << (failure.empty() ? "no failure" : failure);
    drawn_ = drawnThings(drawing());
    for (const Statement& line : expected.statements) { compareLine(cursor, line); }
    if (!groups_.empty()) { EXPECT_EQ(groupsDrawn(), groups_); }
    EXPECT_TRUE(!lines.empty() || asksSomething()) << "nothing is expected";
  }

 private:
  // Lines of a transcript must occur in this order; in their place stay blank lines.
  std::string withoutEvents(const std::string& lines) {
    std::stringstream in(lines);
    std::string others;
    size_t from = 0;
    for (std::string line; std::getline(in, line); others += line + '\n') {
      if (!line.starts_with('{')) { continue; }
      const size_t at = record_.lines().find(line + '\n', from);
      EXPECT_NE(at, std::string::npos) << "not in the transcript, or not there: " << line;
      from = at == std::string::npos ? from : at + line.size();
      line.clear();
    }
    return others;
  }

  // Lines of an expected file that look for no primitive.
  struct LineRow {
    std::string_view name;
    size_t words;
    void (Case::*check)(const ScriptCursor& cursor, const Statement& line);
  };
  static constexpr size_t kAnyNumber = 0;
  static std::span<const LineRow> lineRows() {
    static constexpr LineRow kRows[] = {{"fails", 2, &Case::noteFailure},      {"group", 4, &Case::noteGroup},
                                        {"value", 5, &Case::checkValue},       {"setting", 4, &Case::checkSetting},
                                        {"variable", 3, &Case::checkVariable}, {"unchanged", 2, &Case::checkUnchanged},
                                        {"file", kAnyNumber, &Case::checkFile}};
    return kRows;
  }
  void compareLine(const ScriptCursor& cursor, const Statement& line) {
    SCOPED_TRACE(cursor.script().file + ':' + std::to_string(line.line) + ": " + line.shown());
    const auto row = std::ranges::find(lineRows(), line.name(), &LineRow::name);
    if (row == lineRows().end()) { return checkThing(cursor, line); }
    if (row->words != kAnyNumber) { cursor.expectWords(line, row->words, row->words); }
    (this->*row->check)(cursor, line);
  }

  void noteFailure(const ScriptCursor&, const Statement&) {}  // compared before all others
  void noteGroup(const ScriptCursor& cursor, const Statement& line) {
    groups_.push_back(cursor.string(line, 1) + ' ' + cursor.string(line, 2) + ' ' + cursor.string(line, 3));
  }
  void checkValue(const ScriptCursor& cursor, const Statement& line) {
    const auto file = brevan::IniFile::parse(textOf(files_.resolveForReading(cursor.string(line, 1))));
    EXPECT_EQ(file.lookup(cursor.string(line, 2), cursor.string(line, 3)).value_or("(missing)"),
              cursor.string(line, 4));
  }
  void checkSetting(const ScriptCursor& cursor, const Statement& line) {
    std::array<char, 1000> buffer{};
    settings_.GetString(cursor.string(line, 1), cursor.string(line, 2), "(missing)", buffer.data(), buffer.size());
    EXPECT_EQ(buffer.data(), cursor.string(line, 3));
  }
  void checkVariable(const ScriptCursor& cursor, const Statement& line) {
    const std::string& name = cursor.string(line, 1);
    if (name.ends_with('$')) {
      const std::string* text = player_.host().variables().text(name);
      EXPECT_EQ(text == nullptr ? "(unset)" : *text, cursor.string(line, 2));
    } else {
      EXPECT_NEAR(player_.host().variables().number(name).value_or(NAN), cursor.number(line, 2), 1e-4);
    }
  }
  void checkUnchanged(const ScriptCursor& cursor, const Statement& line) {
    EXPECT_EQ(textOf(files_.resolveForReading(cursor.string(line, 1))), textOf(folder_ / cursor.string(line, 1)));
  }
  void checkFile(const ScriptCursor& cursor, const Statement& line) {
    std::string wanted;
    for (int n = 2; n < static_cast<int>(line.words.size()); ++n) { wanted += cursor.string(line, n) + "\r\n"; }
    EXPECT_EQ(textOf(files_.resolveForReading(cursor.string(line, 1))), wanted);
  }
  void checkThing(const ScriptCursor& cursor, const Statement& line) {
    const WantedThing wanted(cursor, line);
    const auto found = wanted.count(drawn_);
    EXPECT_TRUE(wanted.holds(found)) << "there are " << found << listOnce();
  }

  // What is drawn, as lines of an expected file.
  std::string listOnce() {
    std::string list = listed_ ? "" : "\nThe drawing holds:";
    for (size_t n = 0; n < drawn_.size() && !listed_; ++n) { list += "\n  " + drawn_[n].shown(); }
    listed_ = true;
    return list;
  }
  [[nodiscard]] bool asksSomething() const {
    return fs::exists(fs::path(GetParam()).replace_extension(".refused")) ||
           std::ranges::find(script_.statements, "expect", &Statement::name) != script_.statements.end();
  }
  brevan::Drawing& drawing() { return player_.host().window().drawing(); }
  std::vector<std::string> groupsDrawn() {
    std::vector<std::string> all;
    drawing().forEachGroup([&all](const brevan::Group& group) {
      all.push_back(std::string(group.parent) + ' ' + group.name + ' ' + std::to_string(group.members.size()));
    });
    return all;
  }
  // A copy, for a run that stores something changes it.
  std::string settingsFile() {
    const fs::path shared = folder_ / "settings.ini";
    return fs::exists(shared) ? out_.write("settings.ini", textOf(shared)) : "";
  }

  TemporaryFolder out_;
  fs::path folder_ = GetParam().parent_path();
  brevan::Script script_ = brevan::readScript(GetParam().string(), unrolled(withParts(GetParam())));
  brevan::FileServices files_{folder_.string(), BREVAN_DATA, brevan::FileServices::Confinement{out_.path(), nullptr}};
  INI_LIST settings_{settingsFile()};
  Record record_;
  brevan::ScriptPlayer player_{script_, {files_, settings_, {}, ARDENIX_MODULE, "", &record_, {}, {}}};
  std::vector<std::string> groups_;
  std::vector<DrawnThing> drawn_;
  bool listed_ = false;
};

TEST_P(Case, IsPlayedAsExpected) {
  const std::string failure = play();
  expectNoOtherMessage();
  compare(failure);
}

INSTANTIATE_TEST_SUITE_P(Cases, Case, ::testing::ValuesIn(allScripts()), [](const auto& script) {
  return script.param.parent_path().filename().string() + '_' + script.param.stem().string();
});

// A comparison that could not fail would let every case pass.
TEST(ExpectedFile, TellsWhatIsThereFromWhatIsNot) {
  brevan::Drawing drawing;
  drawing.add({.pen = 3, .width = 2.5, .geometry = brevan::Line{{0, 0}, {5, -14}}});
  drawing.add({.geometry = brevan::Arc{{0, 1}, {0, 0}, {1, 0}, true}});
  drawing.add({.geometry = brevan::Text{{1, 2}, "M10"}});
  const std::string there =
      "line 5 -14 0 0\nline 0 0 5 -13.99995 pen 3 width 2.5\n3 thing layer \"0\"\narc 1 0 0 0 0 1\n"
      "curve through 0.6 0.8\nno curve through -0.6 0.8\nno circle\ntext \"M10\" at 1 2 font \"Arial\"\n";
  const std::string missing =
      "line 0 0 5 14\nline 0 0 5 -13.9998\nline 0 0 5 -14 pen 2\nline 0 0\n2 thing\nno arc\n2 line\narc 0 1 0 0 1 0\n"
      "circle 0 0 1\ncurve through 0 -1\ntext \"M1\"\ntext \"\"\ntext \"M10\" at 2 1\nline pen 3 layer \"1\"\n";
  for (const bool isThere : {true, false}) {
    const brevan::Script lines = brevan::readScript("x.expected", isThere ? there : missing);
    for (const Statement& line : lines.statements) {
      const WantedThing wanted(ScriptCursor(lines), line);
      EXPECT_EQ(wanted.holds(wanted.count(drawnThings(drawing))), isThere) << line.shown();
    }
  }
  for (const char* wrong : {"lines 0 0 1 1", "no lin", "line 0 0 1 1 pens 3", "3"}) {
    const brevan::Script line = brevan::readScript("x.expected", wrong);
    EXPECT_THROW(WantedThing(ScriptCursor(line), line.statements.front()), brevan::ScriptFailure) << wrong;
  }
}

TEST(CaseFolders, HoldScriptsAndWhatIsExpectedOfThem) {
  ASSERT_FALSE(entries(kCases, "").empty());
  for (const fs::path& folder : entries(kCases, "")) {
    EXPECT_FALSE(entries(folder, ".scr").empty() && entries(folder, ".refused").empty()) << folder << " holds no case";
    for (const fs::path& expected : entries(folder, ".expected")) {
      EXPECT_TRUE(fs::exists(fs::path(expected).replace_extension(".scr"))) << expected << " has no script";
    }
  }
}

}  // namespace
