#include "host/core/safe_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include "tests/failure.h"
#include "tests/host/core/temporary_folder.h"

using namespace brevan;

namespace {

const std::string kOld = "[A]\r\nx=old\r\n";
const std::string kNew = std::string(60'000, 'n') + "end";

mode_t modeOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(::stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

}  // namespace

TEST(SafeFile, writesNewAndReplacesOld) {
  const TemporaryFolder folder;
  const std::string path = folder.path("a.ini");
  const FileStamp made = saveWhole(path, kOld);
  EXPECT_EQ(readWhole(path, 100), kOld);
  EXPECT_EQ(made, stampOf(path));
  EXPECT_NE(saveWhole(path, kNew), made);
  EXPECT_EQ(readWhole(path, kNew.size()), kNew);
  saveWhole(path, "");
  EXPECT_EQ(readWhole(path, 0), "");
  EXPECT_EQ(folder.names(), std::set<std::string>{"a.ini"});
}

TEST(SafeFile, keepsLinkAndMode) {
  const TemporaryFolder folder;
  const std::string path = folder.write("real.ini", kOld);
  ::chmod(path.c_str(), 0640);
  std::filesystem::create_symlink("real.ini", folder.path("link.ini"));
  saveWhole(folder.path("link.ini"), kNew);
  EXPECT_TRUE(std::filesystem::is_symlink(folder.path("link.ini")));
  EXPECT_EQ(folder.read("real.ini"), kNew);
  EXPECT_EQ(modeOf(path), 0640U);
  std::filesystem::create_symlink("nowhere.ini", folder.path("dangling.ini"));
  EXPECT_NE(failureOf([&] { saveWhole(folder.path("dangling.ini"), kNew); }), "");
  EXPECT_FALSE(std::filesystem::exists(folder.path("nowhere.ini")));
}

TEST(SafeFile, refusesWhatIsNoRegularFileAtOnce) {
  const TemporaryFolder folder;
  std::filesystem::create_directory(folder.path("sub"));
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
  for (const std::string& path : {folder.path("sub"), folder.path("sub/"), folder.path("pipe")}) {
    EXPECT_NE(failureOf([&] { saveWhole(path, kNew); }), "") << path;
    EXPECT_NE(failureOf([&] { readWhole(path, 100); }), "") << path;
  }
  EXPECT_NE(failureOf([&] { readWhole("/dev/zero", 100); }).find("it is a device"), std::string::npos);
  EXPECT_NE(failureOf([&] { saveWhole(folder.path("missing/a.ini"), kNew); }), "");
  EXPECT_NE(failureOf([&] { readWhole(folder.path("missing"), 100); }), "");
  EXPECT_NE(failureOf([&] { readWhole(folder.write("long", kNew), kNew.size() - 1); }), "");
}

TEST(SafeFile, noticesWhatOthersDidMeanwhile) {
  const TemporaryFolder folder;
  const std::string path = folder.write("a.ini", kOld);
  SaveOptions stamped;
  stamped.expectedStamp = stampOf(path);
  SaveOptions hashed;
  hashed.expectedContent = contentHash(kOld);
  folder.write("a.ini", "[A]\r\nx=two\r\n");  // of the same length
  EXPECT_THROW(saveWhole(path, kNew, stamped), FileChangedFailure);
  EXPECT_THROW(saveWhole(path, kNew, hashed), FileChangedFailure);
  std::filesystem::remove(path);
  EXPECT_THROW(saveWhole(path, kNew, stamped), FileChangedFailure);
  EXPECT_THROW(saveWhole(path, kNew, hashed), FileChangedFailure);
  EXPECT_TRUE(folder.names().empty());
  folder.write("a.ini", kOld);  // another file, the same content
  EXPECT_NO_THROW(saveWhole(path, kNew, hashed));
  SaveOptions absent;
  absent.expectedContent = kNoFile;
  EXPECT_THROW(saveWhole(path, kOld, absent), FileChangedFailure);
  EXPECT_EQ(folder.read("a.ini"), kNew);
}

TEST(SafeFile, waitsForALockOnlySoLong) {
  const TemporaryFolder folder;
  const std::string path = folder.write("a.ini", kOld);
  const int held = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(::flock(held, LOCK_EX), 0);
  SaveOptions options;
  options.lockWait = std::chrono::milliseconds(30);
  EXPECT_NE(failureOf([&] { saveWhole(path, kNew, options); }).find("locked"), std::string::npos);
  EXPECT_EQ(folder.read("a.ini"), kOld);
  ::close(held);
  saveWhole(path, kNew, options);
  EXPECT_EQ(folder.read("a.ini"), kNew);
}
