#include "host/core/file_services.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <thread>

#include "frame/host/core_services.h"
#include "frame/host/ini.h"
#include "host/core/core_context.h"
#include "tests/host/core/temporary_folder.h"

using namespace brevan;

namespace {

// base/ holds a script's inputs, data/ what ships, out/ the output.
class FileServicesTest : public ::testing::Test {
 protected:
  FileServicesTest() {
    for (const char* name : {"base", "data", "out"}) { std::filesystem::create_directory(folder_.path(name)); }
  }
  [[nodiscard]] FileServices freely() const { return {folder_.path("base"), folder_.path("data")}; }
  FileServices confined() {
    return {
        folder_.path("base"), folder_.path("data"),
        FileServices::Confinement{folder_.path("out"), [this](const std::string& text) { reports_.push_back(text); }}};
  }

  // Makes the files what the functions of the seam work on.
  struct Bound {
    explicit Bound(FileServices& files) : context{files, settings, "", nullptr} {}
    INI_LIST settings{""};
    CoreContext context;
    CoreContextBinding binding{context};
  };

  TemporaryFolder folder_;
  std::vector<std::string> reports_;
};

}  // namespace

TEST_F(FileServicesTest, namesMatchWithEitherSeparatorAndAnyCase) {
  const std::string path = folder_.write("base/Windows/W1200.DRG", "x");
  FileServices files = freely();
  EXPECT_EQ(files.resolveForReading("windows\\w1200.drg"), path);
  EXPECT_EQ(files.resolveForReading("Windows//./W1200.DRG"), path);
  EXPECT_EQ(files.resolveForWriting("WINDOWS/w1200.drg"), path);
  EXPECT_EQ(files.resolveForReading(folder_.path("BASE\\windows\\W1200.drg")), path);
  const std::string exact = folder_.write("base/Windows/w1200.drg", "y");
  EXPECT_EQ(files.resolveForReading("windows\\w1200.drg"), exact);
  EXPECT_EQ(files.resolveForReading("windows\\W1200.drg"), path);  // the first of two in byte order
  const std::string accented = folder_.write("base/T\xC3\xBCr.drg", "z");
  EXPECT_EQ(files.resolveForReading("T\xC3\x9CR.DRG"), accented);
  EXPECT_EQ(files.resolveForReading("windows\\new.drg"), folder_.path("base/Windows/new.drg"));
}

TEST_F(FileServicesTest, aFolderThatIsKnownIsReadAgainOnceItChanges) {
  folder_.write("base/One.drg", "x");
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));  // until its names are kept
  FileServices files = freely();
  EXPECT_EQ(files.resolveForReading("ONE.DRG"), folder_.path("base/One.drg"));
  std::filesystem::rename(folder_.path("base/One.drg"), folder_.path("base/Two.drg"));
  EXPECT_EQ(files.resolveForReading("TWO.DRG"), folder_.path("base/Two.drg"));
  EXPECT_EQ(files.resolveForReading("ONE.DRG"), folder_.path("base/ONE.DRG"));
}

TEST_F(FileServicesTest, pathsWithoutRootAreLookedForBesideAndThenInTheData) {
  const std::string shipped = folder_.write("data/Specs.ini", "x");
  FileServices files = freely();
  EXPECT_EQ(files.resolveForReading("specs.ini"), shipped);
  EXPECT_EQ(files.resolveForReading("none.ini"), folder_.path("base/none.ini"));
  const std::string own = folder_.write("base/specs.INI", "x");
  EXPECT_EQ(files.resolveForReading("specs.ini"), own);
  EXPECT_EQ(files.dataFolder(), folder_.path("data/"));
  EXPECT_EQ(files.resolveForReading("C:\\no\\such.ini"), "C:/no/such.ini");
  EXPECT_THROW(files.resolveForWriting("C:\\no\\such.ini"), HostFailure);
}

TEST_F(FileServicesTest, confinedWritingGoesToACopyFromThenOn) {
  const std::string original = folder_.write("data/Specs.ini", "[A]\r\nx=1\r\n");
  FileServices files = confined();
  EXPECT_EQ(files.resolveForReading("specs.ini"), original);
  const std::string copy = folder_.path("out/Specs.ini");
  EXPECT_EQ(files.resolveForWriting("specs.ini"), copy);
  EXPECT_EQ(folder_.read("out/Specs.ini"), "[A]\r\nx=1\r\n");
  EXPECT_EQ(reports_, std::vector<std::string>{original + " is copied to " + copy + " and used from there"});
  EXPECT_EQ(files.resolveForReading(folder_.path("DATA\\specs.ini")), copy);
  EXPECT_EQ(files.resolveForWriting(original), copy);
  EXPECT_EQ(reports_.size(), 1U);
}

TEST_F(FileServicesTest, copiesNeverReplaceWhatIsThereAndNewFilesLieBeside) {
  folder_.write("data/Specs.ini", "data");
  folder_.write("base/lib/Specs.ini", "base");
  folder_.write("out/Specs.ini", "mine");
  FileServices files = confined();
  EXPECT_EQ(files.resolveForWriting("Specs.ini"), folder_.path("out/Specs-2.ini"));
  EXPECT_EQ(files.resolveForWriting("lib/Specs.ini"), folder_.path("out/Specs-3.ini"));
  EXPECT_EQ(folder_.read("out/Specs.ini") + folder_.read("out/Specs-2.ini") + folder_.read("out/Specs-3.ini"),
            "minedatabase");
  EXPECT_EQ(files.resolveForWriting(folder_.path("out/specs.INI")), folder_.path("out/Specs.ini"));
  EXPECT_EQ(reports_.size(), 2U);
  const std::string path = files.resolveForWriting("table.txt");
  EXPECT_EQ(path, folder_.path("out/table.txt"));
  folder_.write("out/table.txt", "x");
  EXPECT_EQ(files.resolveForReading("Table.txt"), path);
  EXPECT_EQ(files.resolveForWriting(folder_.path("base/new.txt")), folder_.path("out/new.txt"));
  EXPECT_EQ(files.resolveForDeleting("table.txt"), path);
}

TEST_F(FileServicesTest, pathsInsideAFolderStayThere) {
  const std::string path = folder_.write("base/Symbols/Weld.sym", "x");
  folder_.write("secret.sym", "x");
  std::filesystem::create_symlink(folder_.path("secret.sym"), folder_.path("base/link.sym"));
  std::filesystem::create_directory_symlink(folder_.path("out"), folder_.path("base/outside"));
  std::filesystem::create_directory_symlink(folder_.path("base/Symbols"), folder_.path("base/inside"));
  const std::string base = folder_.path("base");
  EXPECT_EQ(resolveInside(base, "symbols\\WELD.sym"), path);
  EXPECT_EQ(resolveInside(base, "inside/Weld.sym"), path);
  EXPECT_EQ(resolveInside(base, "Symbols/new.sym"), folder_.path("base/Symbols/new.sym"));
  for (const char* name :
       {"../secret.sym", "Symbols/../../secret.sym", "Symbols/../Symbols/Weld.sym", "/etc/passwd", "\\etc\\passwd",
        "C:x.sym", "c:\\x.sym", "NUL", "aux.sym", "Symbols\\com1.drg", "link.sym", "outside/new.sym", "", ".", "/"}) {
    EXPECT_THROW(resolveInside(base, name), HostFailure) << name;
  }
  EXPECT_THROW(resolveInside(base, std::string("a\0b", 3)), HostFailure);
}

TEST_F(FileServicesTest, iniFileKeepsItsNameWhenItMovesToACopy) {
  const std::string original = folder_.write("data/Specs.ini", "[A]\r\nx=1\r\n");
  FileServices files = confined();
  const Bound bound(files);
  TINIFile file(original);
  for (const int value : {2, 3}) {
    file.WriteInt("A", "x", value);
    file.UpdateFile();
    EXPECT_EQ(TINIFile(original).ReadInt("A", "x", 0), value);
  }
  EXPECT_EQ(file.FileName(), original);
  EXPECT_EQ(TemporaryFolder::readFile(original), "[A]\r\nx=1\r\n");
  EXPECT_EQ(folder_.read("out/Specs.ini"), "[A]\r\nx=3\r\n");
}

TEST_F(FileServicesTest, fileFunctionsOfTheSeam) {
  folder_.write("data/a.txt", "one\r\ntwo\nthree");
  FileServices files = confined();
  const Bound bound(files);
  EXPECT_EQ(coreGetDefaultPath(), folder_.path("data/"));
  EXPECT_EQ(coreFileExist(coreGetDefaultPath() + "A.TXT"), 1);
  EXPECT_EQ(coreFileExist("b.txt") + coreFileExist("../base") + coreFileExist(coreGetDefaultPath()), 0);
  EXPECT_EQ(coreFileCopy("a.txt", "b.txt"), 1);
  EXPECT_EQ(folder_.read("out/b.txt"), "one\r\ntwo\nthree");
  EXPECT_EQ(coreFileDelete("b.txt"), 1);
  EXPECT_EQ(coreFileDelete("b.txt") + coreFileDelete("a.txt") + coreFileCopy("none", "c.txt"), 0);
  EXPECT_EQ(folder_.read("data/a.txt").size(), 14U);
}

TEST_F(FileServicesTest, textFilesAreReadAndWrittenLineByLine) {
  folder_.write("base/list.txt", "one\r\n\r\nthree\rfour");
  ASSERT_EQ(::mkfifo(folder_.path("base/pipe").c_str(), 0600), 0);
  FileServices files = confined();
  const Bound bound(files);
  const int list = coreFileOpen("LIST.txt", "r");
  const int table = coreFileOpen("table.txt", "w");
  ASSERT_TRUE(list > 0 && table > 0 && list != table);
  std::string line;
  while (coreFileTxtRead(list, line) != 0) { EXPECT_EQ(coreFileTxtWrite(table, line + "\xD8"), 1); }
  EXPECT_EQ(coreFileTxtWrite(table, "a\nb"), 0);
  EXPECT_FALSE(std::filesystem::exists(folder_.path("out/table.txt")));
  EXPECT_NE(coreFileClose(table), 0);
  EXPECT_NE(coreFileClose(list), 0);
  EXPECT_EQ(folder_.read("out/table.txt"), "one\xD8\r\n\xD8\r\nthree\xD8\r\nfour\xD8\r\n");
  EXPECT_EQ(coreFileOpen("none.txt", "r"), 0);
  EXPECT_THROW(coreFileOpen("pipe", "r"), HostFailure);
  EXPECT_THROW(coreFileOpen("list.txt", "a"), HostFailure);
  EXPECT_THROW(coreFileClose(table), HostFailure);
  EXPECT_THROW(coreFileTxtRead(list, line), HostFailure);
}

TEST(FileNames, extensionsAndNamesAreReplaced) {
  EXPECT_EQ(coreChangeFileExt("C:\\my.parts\\bolt.drg", ".dxf"), "C:\\my.parts\\bolt.dxf");
  EXPECT_EQ(coreChangeFileExt("my.parts/bolt", "dxf"), "my.parts/bolt.dxf");
  EXPECT_EQ(coreChangeFileExt("bolt.tar.gz", ""), "bolt.tar");
  EXPECT_EQ(coreChangeFileName("/usr/share/brevan.hlp", "brevan", ".chm"), "/usr/share/brevan.chm");
  EXPECT_EQ(coreChangeFileName("brevan.hlp", "other", "chm"), "other.chm");
}

TEST(FileNames, abbreviatedPathsFit) {
  const std::string path = "/home/ann/drawings/2024/plate.ini";
  const std::pair<int, std::string> rows[] = {
      {40, path},     {30, "/home/ann/.../plate.ini"}, {14, "/.../plate.ini"}, {13, ".../plate.ini"}, {10, "plate.ini"},
      {8, "plate..."}};
  for (const auto& [length, shown] : rows) { EXPECT_EQ(coreAbbreviateFileName(path, length), shown); }
  for (int length = -1; length < 40; ++length) {
    EXPECT_LE(static_cast<int>(coreAbbreviateFileName(path, length).size()), std::max(length, 0));
  }
}
