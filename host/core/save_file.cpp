#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <optional>
#include <random>
#include <thread>
#include <utility>

#include "host/core/safe_file.h"
#include "host/core/stamps.h"
#include "host/core/system_reason.h"
#include "host/core/text_encoding.h"

namespace brevan {
namespace {

// A save that has begun ends before the process heeds a signal, an alarm that would end it included, so that no
// temporary file is left; a write beyond the process's size limit fails instead of killing it.
class SignalHold {
 public:
  SignalHold() {
    sigset_t held;
    sigemptyset(&held);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGALRM, SIGXFSZ}) { sigaddset(&held, signal); }
    pthread_sigmask(SIG_BLOCK, &held, &before_);
  }
  SignalHold(const SignalHold&) = delete;
  SignalHold& operator=(const SignalHold&) = delete;
  ~SignalHold() {
    if (sigismember(&before_, SIGXFSZ) == 0) {
      sigset_t sizeLimit;
      sigemptyset(&sizeLimit);
      sigaddset(&sizeLimit, SIGXFSZ);
      const timespec noWait{};
      sigtimedwait(&sizeLimit, nullptr, &noWait);
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }

 private:
  sigset_t before_{};
};

// One save, step by step. Every failure leaves through fail(); the destructor removes what was begun.
class Saver {
 public:
  Saver(const std::string& path, const SaveOptions& options) : path_(path), options_(options) {}
  Saver(const Saver&) = delete;
  Saver& operator=(const Saver&) = delete;
  ~Saver() {
    if (temporary_ >= 0) { ::close(temporary_); }
    if (temporaryMade_) { ::unlinkat(folder_, temporaryName_.c_str(), 0); }
    if (folder_ >= 0) { ::close(folder_); }
  }

  FileStamp save(std::string_view bytes) {
    findTarget();
    openFolder();
    lockFolder();
    hold_.emplace();
    lookAtTarget();
    refuseChanged();
    makeTemporary();
    writeAll(bytes);
    finishTemporary();
    return putInPlace();
  }

 private:
  [[noreturn]] void fail(std::string_view reason) const {
    throw HostFailure("cannot save \"" + messageText(path_) + "\": " + std::string(reason));
  }
  [[noreturn]] void failSystem(std::string_view step) const {
    fail(systemReason(errno) + " (" + std::string(step) + ")");
  }

  void findTarget();
  void openFolder();
  void lockFolder();
  void lookAtTarget();
  void refuseChanged() const;
  void makeTemporary();
  void writeAll(std::string_view bytes) const;
  void finishTemporary();
  FileStamp putInPlace();

  std::optional<SignalHold> hold_;  // the first member, so that signals wait until what was begun is removed
  const std::string& path_;
  const SaveOptions& options_;
  std::string folderPath_;
  std::string name_;
  std::string temporaryName_;
  FileStamp current_;
  FileStamp written_;
  mode_t mode_ = 0;
  uid_t owner_ = 0;
  gid_t group_ = 0;
  int folder_ = -1;
  int temporary_ = -1;
  bool locked_ = false;
  bool temporaryMade_ = false;
};

std::optional<std::string> realPath(const std::string& path) {
  const std::unique_ptr<char, void (*)(void*)> real(::realpath(path.c_str(), nullptr), std::free);
  if (!real) { return std::nullopt; }
  return std::string(real.get());
}

// A symbolic link stays one: what it leads to is replaced.
void Saver::findTarget() {
  std::optional<std::string> target = realPath(path_);
  if (!target && errno != ENOENT) { failSystem("finding the file"); }
  struct stat status {};
  if (!target && ::lstat(path_.c_str(), &status) == 0) { fail("it is a link that leads nowhere"); }
  const size_t cut = (target ? *target : path_).rfind('/');
  name_ = (target ? *target : path_).substr(cut == std::string::npos ? 0 : cut + 1);
  if (target) {
    folderPath_ = target->substr(0, cut + 1);
  } else {
    const std::optional<std::string> folder = realPath(cut == std::string::npos ? "." : path_.substr(0, cut + 1));
    if (!folder) { failSystem("finding its folder"); }
    folderPath_ = *folder;
  }
  if (name_.empty() || name_ == "." || name_ == "..") { fail("it is a folder"); }
}

void Saver::openFolder() {
  do {
    folder_ = ::open(folderPath_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  } while (folder_ < 0 && errno == EINTR);
  if (folder_ < 0) { failSystem("opening its folder"); }
}

// Some network file systems cannot lock a folder; there the comparison with what was loaded must do.
void Saver::lockFolder() {
  constexpr std::chrono::milliseconds kPause{5};
  const auto end = std::chrono::steady_clock::now() + options_.lockWait;
  while (::flock(folder_, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EBADF || errno == ENOLCK || errno == EOPNOTSUPP || errno == ENOSYS) { return; }
    if (errno != EWOULDBLOCK && errno != EINTR) { failSystem("locking its folder"); }
    if (std::chrono::steady_clock::now() >= end) { fail("another program keeps its folder locked"); }
    std::this_thread::sleep_for(kPause);
  }
  locked_ = true;
}

void Saver::lookAtTarget() {
  struct stat status {};
  if (::fstatat(folder_, name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
    if (errno != ENOENT) { failSystem("looking at it"); }
    return;
  }
  if (!S_ISREG(status.st_mode)) { fail(irregularReason(status)); }
  if (::faccessat(folder_, name_.c_str(), W_OK, AT_EACCESS) != 0) { failSystem("it may not be written"); }
  current_ = stampFrom(status);
  mode_ = status.st_mode & 07777;
  owner_ = status.st_uid;
  group_ = status.st_gid;
}

void Saver::refuseChanged() const {
  bool changed = options_.expectedStamp && *options_.expectedStamp != current_;
  if (options_.expectedContent) {
    const bool expected = *options_.expectedContent != kNoFile;
    changed = expected != current_.exists;
    if (!changed && expected) {
      const std::string now = readWhole(folderPath_ + "/" + name_, static_cast<size_t>(current_.size));
      changed = contentHash(now) != *options_.expectedContent;
    }
  }
  if (changed) {
    throw FileChangedFailure("cannot save \"" + messageText(path_) + "\": it was " +
                             (current_.exists ? "changed" : "removed") + " by another program meanwhile");
  }
}

// Under the lock the name is ours: one that is there already was left by a program that was killed.
void Saver::makeTemporary() {
  constexpr size_t kLongestStem = 200;
  temporaryName_ = "." + name_.substr(0, kLongestStem) + ".saving";
  if (locked_) {
    if (::unlinkat(folder_, temporaryName_.c_str(), 0) != 0 && errno != ENOENT) { failSystem("removing an old copy"); }
  } else {
    temporaryName_ += std::to_string(std::random_device{}());
  }
  constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  do {
    temporary_ = ::openat(folder_, temporaryName_.c_str(), kFlags, current_.exists ? 0600 : 0666);
  } while (temporary_ < 0 && errno == EINTR);
  if (temporary_ < 0) { failSystem("making a file beside it"); }
  temporaryMade_ = true;
  if (!current_.exists) { return; }
  // Only a privileged program can keep a foreign owner; for others the file becomes theirs.
  if (owner_ != ::geteuid() || group_ != ::getegid()) {
    [[maybe_unused]] const int kept = ::fchown(temporary_, owner_, group_);
  }
  if (::fchmod(temporary_, mode_) != 0) { failSystem("keeping its mode"); }
}

void Saver::writeAll(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = ::write(temporary_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) { continue; }
    if (count < 0) { failSystem("writing"); }
    if (count == 0) { fail("the disk takes no more bytes"); }
    bytes.remove_prefix(static_cast<size_t>(count));
  }
}

void Saver::finishTemporary() {
  if (::fsync(temporary_) != 0) { failSystem("bringing it to the disk"); }
  struct stat status {};
  if (::fstat(temporary_, &status) != 0) { failSystem("looking at the new file"); }
  written_ = stampFrom(status);
  const int closed = ::close(std::exchange(temporary_, -1));
  if (closed != 0 && errno != EINTR) { failSystem("closing"); }
}

// Renaming changes the new file's times, so its stamp is taken afterwards; when another file has come in
// its place already, the older stamp makes sure that this is noticed.
FileStamp Saver::putInPlace() {
  if (::renameat(folder_, temporaryName_.c_str(), folder_, name_.c_str()) != 0) { failSystem("putting it in place"); }
  temporaryMade_ = false;
  struct stat status {};
  const bool seen = ::fstatat(folder_, name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
  if (::fsync(folder_) != 0) { failSystem("bringing its folder to the disk"); }
  return seen && status.st_ino == written_.inode ? stampFrom(status) : written_;
}

}  // namespace

FileStamp saveWhole(const std::string& path, std::string_view bytes, const SaveOptions& options) {
  return Saver(path, options).save(bytes);
}

}  // namespace brevan
