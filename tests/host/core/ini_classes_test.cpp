#include <gtest/gtest.h>

#include <array>

#include "frame/host/core_services.h"
#include "tests/core_fixture.h"
#include "tests/failure.h"

using namespace brevan;
using Choice = SaveConflictAnswer::Choice;

namespace {

using IniClasses = CoreFixture;

std::string getString(const INI_LIST& list, const char* section, const char* key, const char* fallback, int size = 64) {
  std::array<char, 64> buffer{};
  const int length = list.GetString(section, key, fallback, buffer.data(), size);
  EXPECT_EQ(std::string(buffer.data()).size(), static_cast<size_t>(length));
  return buffer.data();
}

}  // namespace

TEST_F(IniClasses, readsTypedValuesLeniently) {
  folder_.write("Specs.INI", "[Setup]\r\nA=10.7\r\nB= 2.50mm\r\nC=\r\nD=x\r\nE=1e99\r\nF=-3\r\n");
  const TINIFile file("specs.ini");
  EXPECT_EQ(file.FileName(), "specs.ini");
  EXPECT_EQ(file.ReadInt("setup", "a", 1), 10);
  for (const char* key : {"C", "D", "E"}) { EXPECT_EQ(file.ReadInt("Setup", key, 7), 7) << key; }
  EXPECT_EQ(file.ReadDouble("Setup", "B", 1.0), 2.5);
  EXPECT_EQ(file.ReadString("Setup", "C", "seven"), "");
  EXPECT_TRUE(file.ReadBool("Setup", "F", false) && file.ReadBool("Setup", "missing", true));
}

TEST_F(IniClasses, writesOnlyWhenAskedTo) {
  TINIFile file("new.ini");
  EXPECT_EQ(file.ReadInt("A", "x", 5), 5);
  file.UpdateFile();
  EXPECT_TRUE(folder_.names().empty());
  file.WriteDouble("A", "width", -0.0001, 3);
  file.WriteDouble("A", "length", 2.0005, 3);
  file.WriteBool("A", "on", true);
  file.WriteInt("A", "count", -4);
  EXPECT_THROW(file.WriteDouble("A", "bad", 1.0 / 0.0 * 0.0, 3), HostFailure);
  EXPECT_THROW(file.WriteString("A", "bad", "a\nb"), HostFailure);
  EXPECT_TRUE(folder_.names().empty());
  file.UpdateFile();
  EXPECT_EQ(folder_.read("new.ini"), "[A]\r\nwidth=0.000\r\nlength=2.001\r\non=1\r\ncount=-4\r\n");
  file.DeleteKey("A", "on");
  file.UpdateFile();
  file.EraseSection("A");
  file.UpdateFile();
  EXPECT_EQ(folder_.read("new.ini"), "");
}

TEST_F(IniClasses, unreadableFilesAreReportedWithTheirPath) {
  std::filesystem::create_directory(folder_.path("sub.ini"));
  folder_.write("nul.ini", std::string("[A]\nx=\0", 7));
  for (const char* name : {"sub.ini", "nul.ini"}) {
    EXPECT_NE(failureOf([&] { TINIFile file(name); }).find(name), std::string::npos);
  }
}

TEST_F(IniClasses, whatOthersChangedIsNeverOverwrittenUnseen) {
  const std::string mine = "[A]\r\nx=1\r\n";
  const std::string theirs = "[A]\r\nx=2\r\n";
  std::vector<std::string> asked;
  SaveConflictAnswer answer;
  context().conflict = [&](const std::string& path) { return asked.push_back(path), answer; };
  const auto conflict = [&](Choice choice) {
    folder_.write("a.ini", mine);
    auto file = std::make_unique<TINIFile>("a.ini");
    folder_.write("a.ini", theirs);
    file->WriteString("A", "x", "3");
    answer = {choice, folder_.path("b.ini")};
    file->UpdateFile();
    return file;
  };
  EXPECT_THROW(conflict(Choice::kFail), HostFailure);
  EXPECT_EQ(folder_.read("a.ini"), theirs);
  EXPECT_EQ(conflict(Choice::kReload)->ReadString("A", "x", ""), "2");
  EXPECT_EQ(folder_.read("a.ini"), theirs);
  EXPECT_EQ(conflict(Choice::kSaveAs)->FileName(), folder_.path("b.ini"));
  EXPECT_EQ(folder_.read("a.ini"), theirs);
  EXPECT_EQ(folder_.read("b.ini"), "[A]\r\nx=3\r\n");
  const auto overwritten = conflict(Choice::kOverwrite);
  EXPECT_EQ(folder_.read("a.ini"), "[A]\r\nx=3\r\n");
  overwritten->WriteString("A", "x", "4");
  overwritten->UpdateFile();
  EXPECT_EQ(asked, std::vector<std::string>(4, folder_.path("a.ini")));
  context().conflict = nullptr;
  EXPECT_THROW(conflict(Choice::kOverwrite), HostFailure);
}

TEST_F(IniClasses, failedSaveKeepsTheChanges) {
  TINIFile file("sub/a.ini");
  file.WriteString("A", "x", "1");
  EXPECT_THROW(file.UpdateFile(), HostFailure);
  std::filesystem::create_directory(folder_.path("sub"));
  file.UpdateFile();
  EXPECT_EQ(folder_.read("sub/a.ini"), "[A]\r\nx=1\r\n");
}

TEST_F(IniClasses, listIsWalkedLineByLine) {
  folder_.write(
      "points.ini",
      "; points\r\n[Empty]\r\n\r\n[TRIG]\r\nPeak 12=1,5,6\r\n\r\n;remark\r\nHill=0,7,8\r\n\r\n[TSM]\r\na=1\r\n");
  INI_LIST list("points.ini");
  INI_LINE* first = nullptr;
  INI_LINE* last = nullptr;
  list.GetSectionLimits("trig", first, last);
  ASSERT_TRUE(first != nullptr && last != nullptr);
  EXPECT_EQ(first->Text(), "Peak 12=1,5,6");
  EXPECT_EQ(last->Text(), "Hill=0,7,8");
  EXPECT_EQ(first->Next()->Next()->Next(), last);
  for (const char* name : {"Empty", "Missing"}) {
    list.GetSectionLimits(name, first, last);
    EXPECT_TRUE(first == nullptr && last == nullptr) << name;
  }
  list.SetString("TRIG", "Ridge", "0,1,2");
  list.GetSectionLimits("TRIG", first, last);
  EXPECT_EQ(last->Text(), "Ridge=0,1,2");
  int lines = 0;
  for (INI_LINE* line = list.First(); line != nullptr; line = line->Next()) { ++lines; }
  EXPECT_EQ(lines, 12);
  list.Save();
  EXPECT_EQ(last->Text(), "Ridge=0,1,2");  // lines last until the next change
  EXPECT_EQ(getString(list, "TRIG", "ridge", ""), "0,1,2");
  EXPECT_EQ(getString(list, "TRIG", "ridge", "", 4), "0,1");
  EXPECT_EQ(getString(list, "TRIG", "none", "<none>"), "<none>");
}

TEST_F(IniClasses, listWithoutAFileLivesInMemory) {
  settings().SetString("MechanicalTools", "SpecFile", "C:\\x.ini");
  settings().SetString("Screen", "Depth", "24 bits");
  settings().SetString("RegisteredServers", "CLSID\\{A}\\In_(1)", "/usr/lib/help.so");
  settings().Save();
  EXPECT_TRUE(folder_.names().empty());
  EXPECT_EQ(getString(settings(), "mechanicaltools", "specfile", ""), "C:\\x.ini");
  EXPECT_EQ(coreGetDefaultInt("Screen", "Depth", 8), 24);
  EXPECT_EQ(coreGetDefaultInt("Screen", "Width", 8), 8);
  EXPECT_EQ(coreRegisteredServer("CLSID\\{A}\\In=[1]"), "/usr/lib/help.so");
  EXPECT_EQ(coreRegisteredServer("other"), "");
}

TEST(CoreContext, callsWithoutAContextSayWhatIsMissing) {
  ASSERT_FALSE(hasCoreContext());
  EXPECT_THROW(coreGetDefaultPath(), std::logic_error);
  const TemporaryFolder folder;
  INI_LIST settings(folder.path("settings.ini"));  // settings are read before there is a context
  settings.SetString("A", "x", "1");
  settings.Save();
  EXPECT_EQ(folder.read("settings.ini"), "[A]\r\nx=1\r\n");
}
