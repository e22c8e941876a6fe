#include "host/core/safe_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "tests/failure.h"
#include "tests/host/core/temporary_folder.h"

using namespace brevan;

namespace {

// Fails the n-th call of a save, writes short and is interrupted in turn, or ends the process there as a kill would, or
// asks it to end.
class FailingCalls : public FileSystemCalls {
 public:
  static constexpr int kKill = -1;
  static constexpr int kShort = -2;
  static constexpr int kAskToEnd = -3;

  FailingCalls(int failingCall, int errorNumber) : failingCall_(failingCall), error_(errorNumber) {}
  [[nodiscard]] int count() const { return count_; }

  int openAt(int folder, const char* name, int flags, mode_t mode) const override {
    return fails() ? -1 : FileSystemCalls::openAt(folder, name, flags, mode);
  }
  int statAt(int folder, const char* name, struct stat& status, int flags) const override {
    return fails() ? -1 : FileSystemCalls::statAt(folder, name, status, flags);
  }
  int accessAt(int folder, const char* name, int mode) const override {
    return fails() ? -1 : FileSystemCalls::accessAt(folder, name, mode);
  }
  int lock(int descriptor, int operation) const override {
    return fails() ? -1 : FileSystemCalls::lock(descriptor, operation);
  }
  ssize_t write(int descriptor, const char* bytes, size_t count) const override {
    if (error_ == kShort && ++count_ % 2 == 0) { return errno = EINTR, -1; }
    if (error_ == kShort) { return FileSystemCalls::write(descriptor, bytes, std::min<size_t>(count, 3)); }
    return fails() ? -1 : FileSystemCalls::write(descriptor, bytes, count);
  }
  int changeMode(int descriptor, mode_t mode) const override {
    return fails() ? -1 : FileSystemCalls::changeMode(descriptor, mode);
  }
  int sync(int descriptor) const override { return fails() ? -1 : FileSystemCalls::sync(descriptor); }
  int close(int descriptor) const override {
    const bool failing = fails();
    const int error = errno;
    const int result = FileSystemCalls::close(descriptor);
    if (failing) { errno = error; }
    return failing ? -1 : result;
  }
  int renameAt(int folder, const char* from, const char* to) const override {
    return fails() ? -1 : FileSystemCalls::renameAt(folder, from, to);
  }
  // Only the removal of an old copy at the start; cleaning up has to work for the test to mean anything.
  int unlinkAt(int folder, const char* name) const override {
    return !cleaning() && fails() ? -1 : FileSystemCalls::unlinkAt(folder, name);
  }

 private:
  bool fails() const {
    if (error_ == kShort || ++count_ != failingCall_) { return false; }
    if (error_ == kKill || error_ == kAskToEnd) { return ::raise(error_ == kKill ? SIGKILL : SIGTERM) != 0; }
    errno = error_;
    return true;
  }
  bool cleaning() const { return failingCall_ > 0 && count_ >= failingCall_; }

  int failingCall_;
  int error_;
  mutable int count_ = 0;
};

// Takes every file for a device. No test saves onto a real one: should the refusal ever break, a test that
// runs as root would put a file in the device's place.
class DeviceCalls : public FileSystemCalls {
 public:
  int statAt(int folder, const char* name, struct stat& status, int flags) const override {
    const int result = FileSystemCalls::statAt(folder, name, status, flags);
    status.st_mode = (status.st_mode & ~static_cast<mode_t>(S_IFMT)) | S_IFCHR;
    return result;
  }
};

const std::string kOld = "[A]\r\nx=old\r\n";
const std::string kNew = std::string(60'000, 'n') + "end";

void saveBy(const FileSystemCalls& calls, const std::string& path) {
  SaveOptions options;
  options.calls = &calls;
  saveWhole(path, kNew, options);
}

int callsOfASave(const std::string& path) {
  const FailingCalls counting(0, 0);
  saveBy(counting, path);
  return counting.count();
}

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

TEST(SafeFile, everyFailingCallLeavesTheFileWholeAndNoLitter) {
  const TemporaryFolder folder;
  const int calls = callsOfASave(folder.write("a.ini", kOld));
  ASSERT_GT(calls, 10);
  int reasons = 0;
  for (const bool exists : {true, false}) {
    for (const int error : {ENOSPC, EIO, EACCES, EINTR, EDQUOT, EROFS}) {
      for (int call = 1; call <= calls; ++call) {
        const std::string path = folder.write("a.ini", kOld);
        if (!exists) { std::filesystem::remove(path); }
        const std::string failure = failureOf([&] { saveBy(FailingCalls(call, error), path); });
        const std::string now = folder.read("a.ini");
        ASSERT_TRUE(now == kNew || now == (exists ? kOld : "")) << "call " << call << " error " << error;
        if (failure.empty()) { ASSERT_EQ(now, kNew) << "call " << call << " error " << error; }
        if (!failure.empty()) { ASSERT_NE(failure.find(path), std::string::npos) << failure; }
        reasons += failure.find(std::strerror(error)) != std::string::npos ? 1 : 0;
        ASSERT_LE(folder.names().size(), 1U) << "call " << call << " error " << error;
      }
    }
  }
  EXPECT_GE(reasons, 2 * 6 * 5) << "told with their reasons";
}

TEST(SafeFile, shortAndInterruptedWritesAreContinued) {
  const TemporaryFolder folder;
  saveBy(FailingCalls(0, FailingCalls::kShort), folder.path("a.ini"));
  EXPECT_EQ(folder.read("a.ini"), kNew);
}

TEST(SafeFile, killedAtEveryCallTheFileIsWholeAndTheNextSaveCleansUp) {
  const TemporaryFolder folder;
  const std::string path = folder.write("a.ini", kOld);
  const int calls = callsOfASave(path);
  for (const int signal : {FailingCalls::kKill, FailingCalls::kAskToEnd}) {
    for (int call = 1; call <= calls; ++call) {
      folder.write("a.ini", kOld);
      const pid_t child = ::fork();
      if (child == 0) {
        saveBy(FailingCalls(call, signal), path);
        ::_exit(0);
      }
      int status = 0;
      ASSERT_EQ(::waitpid(child, &status, 0), child);
      ASSERT_TRUE(WIFSIGNALED(status)) << "call " << call;
      const std::string now = folder.read("a.ini");
      ASSERT_TRUE(now == kNew || now == kOld) << "call " << call;
      if (signal == FailingCalls::kKill) { saveWhole(path, kOld); }  // who is asked to end cleans up itself
      ASSERT_EQ(folder.names(), std::set<std::string>{"a.ini"}) << "call " << call;
    }
  }
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
  EXPECT_NE(failureOf([&] { readWhole("/dev/zero", 100); }), "");
  const std::string device = folder.write("device", kOld);
  EXPECT_NE(failureOf([&] { saveBy(DeviceCalls(), device); }).find("device"), std::string::npos);
  EXPECT_EQ(folder.read("device"), kOld);
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
