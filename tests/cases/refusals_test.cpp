#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "host/files/json_writer.h"
#include "host/scripts/script_player.h"
#include "tests/host/core/temporary_folder.h"

// Holds every statement of a .refused file to its message: after the script of the same name, where there is one, the
// statement fails with the text of the line below it and changes nothing.

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> refusedFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(SOURCE_ROOT "/tests/cases")) {
    if (entry.path().extension() == ".refused") { files.push_back(entry.path()); }
  }
  return files;
}

std::string toJson(const brevan::Drawing& drawing, const brevan::ExportOptions&) { return drawingJson(drawing); }

class Refusals : public ::testing::TestWithParam<fs::path> {
 protected:
  // The failure, "" where there is none; what there is then goes to `left`.
  std::string play(const std::string& text, std::string& left) {
    const TemporaryFolder out;
    brevan::FileServices files(GetParam().parent_path().string(), BREVAN_DATA,
                               brevan::FileServices::Confinement{out.path(), nullptr});
    INI_LIST settings("");
    std::string failure;
    try {
      const brevan::Script script = brevan::readScript("x.scr", text);
      brevan::ScriptPlayer player(script, {files, settings, {{"json", toJson}}, "", "", nullptr, {}, {}});
      try {
        player.play();
      } catch (const brevan::ScriptFailure& failed) { failure = failed.what(); }
      const brevan::Drawing& drawing = player.host().window().drawing();
      const std::string* step = drawing.undoName();
      left = drawingJson(drawing) + std::to_string(drawing.selection().size()) + " selected, undo " +
             (step == nullptr ? "nothing" : *step) + ", line type " +
             std::to_string(player.host().window().style().linetype);
    } catch (const brevan::ScriptFailure& unread) { return unread.what(); }
    return failure;
  }
};

TEST_P(Refusals, FailWithTheirMessageAndChangeNothing) {
  const fs::path head = fs::path(GetParam()).replace_extension(".scr");
  const std::string before = fs::exists(head) ? TemporaryFolder::readFile(head.string()) : "";
  const std::string line = std::to_string(std::count(before.begin(), before.end(), '\n') + 1);
  std::string untouched;
  ASSERT_EQ(play(before, untouched), "");
  std::istringstream rows(TemporaryFolder::readFile(GetParam().string()));
  int count = 0;
  for (std::string statement; std::getline(rows, statement);) {
    if (statement.empty() || statement[0] == '#') { continue; }
    std::string message;
    ASSERT_TRUE(std::getline(rows, message) && message.starts_with("  ")) << statement << " has no message below it";
    std::string left = untouched;
    std::string failure = play(before + statement, left);
    const size_t folder = failure.find(GetParam().parent_path().string());
    if (folder != std::string::npos) { failure.replace(folder, GetParam().parent_path().string().size(), "FOLDER"); }
    EXPECT_EQ(failure, "x.scr:" + line + ": " + message.substr(2));
    EXPECT_TRUE(left == untouched) << statement << " left a change";
    ++count;
  }
  EXPECT_GT(count, 0);
}

INSTANTIATE_TEST_SUITE_P(Files, Refusals, ::testing::ValuesIn(refusedFiles()), [](const auto& file) {
  return file.param.parent_path().filename().string() + '_' + file.param.stem().string();
});

}  // namespace
