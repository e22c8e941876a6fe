// Loaded ahead of a program (LD_PRELOAD), stands between it and the system calls that change files below one folder:
// counts them, makes the n-th fail or the program die there, and writes down what they did.
//
//   FAULTS_BELOW   the folder; calls that concern anything else pass
//   FAULTS_AT      the number of the call, from 1
//   FAULTS_DO      "kill"; "term", which ends a program that does not hold that signal; "short", which cuts and
//   interrupts
//                  every write in turn; or the number of the error that the call fails with
//   FAULTS_LOG     a file for what was done: see noteDone()
//   FAULTS_COUNT   a file for the number of calls made
//   FAULTS_LOOKING calls that open, close, lock and look at files count and fail, too: "below" those that concern the
//                  folder, any other value all of them, wherever the file lies
//   FAULTS_NEW_AT  the number of the operator new that fails, counted from the first call of the kind above
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

namespace {

template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}
#define NEXT(name) (*next<decltype(::name)>(#name))

long numberOf(const char* variable) {
  const char* const text = ::getenv(variable);
  return text == nullptr ? 0 : ::strtol(text, nullptr, 10);
}

std::atomic<long> calls{0};
std::atomic<bool> armed{false};
thread_local bool inside = false;  // of this library's own work

// Allocations and writes of the library's own are none of the program's.
class Inside {
 public:
  Inside() : before_(inside) { inside = true; }
  Inside(const Inside&) = delete;
  Inside& operator=(const Inside&) = delete;
  ~Inside() { inside = before_; }

 private:
  bool before_;
};

std::string linkOf(int descriptor) {
  char target[PATH_MAX];
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const ssize_t length = ::readlink(link.c_str(), target, sizeof target);
  return length < 0 ? "" : std::string(target, static_cast<size_t>(length));
}

std::string pathOf(int folder, const char* name) {
  if (name[0] == '/') { return name; }
  char here[PATH_MAX];
  const std::string base = folder == AT_FDCWD ? std::string(::getcwd(here, sizeof here)) : linkOf(folder);
  return base + '/' + name;
}

bool isWatched(const std::string& path) {
  static const char* const kBelow = ::getenv("FAULTS_BELOW");
  return kBelow != nullptr && path.starts_with(kBelow);
}

void appendTo(const char* file, const std::string& bytes, int flags) {
  const int descriptor = NEXT(open)(file, O_WRONLY | O_CREAT | O_CLOEXEC | flags, 0600);
  if (descriptor < 0) { ::abort(); }
  for (size_t done = 0; done < bytes.size();) {
    const ssize_t count = NEXT(write)(descriptor, bytes.data() + done, bytes.size() - done);
    if (count <= 0) { ::abort(); }
    done += static_cast<size_t>(count);
  }
  NEXT(close)(descriptor);
}

// Whether this call is to fail, errno being set; may not return at all.
bool failsNow() {
  static const long kAt = numberOf("FAULTS_AT");
  static const char* const kDo = ::getenv("FAULTS_DO");
  static const char* const kCount = ::getenv("FAULTS_COUNT");
  armed = true;
  const long call = ++calls;
  if (kCount != nullptr) { appendTo(kCount, std::to_string(call) + "\n", O_TRUNC); }
  if (call != kAt || kDo == nullptr) { return false; }
  if (std::strcmp(kDo, "kill") == 0) { ::raise(SIGKILL); }
  if (std::strcmp(kDo, "term") == 0) {
    std::signal(SIGTERM, SIG_DFL);
    return ::raise(SIGTERM) != 0;
  }
  errno = static_cast<int>(numberOf("FAULTS_DO"));
  return true;
}

std::string inodeOf(int descriptor) {
  struct stat status {};
  return NEXT(fstat)(descriptor, &status) == 0 ? std::to_string(status.st_ino) : "0";
}

bool concerns(int descriptor) {
  if (inside) { return false; }
  const Inside own;
  return isWatched(linkOf(descriptor));
}

bool concernsName(int folder, const char* name) {
  if (inside) { return false; }
  const Inside own;
  return isWatched(pathOf(folder, name));
}

// The same for a call that changes nothing; `concernsFolder` tells whether it is about the folder below.
template <class Concerns>
bool looksInVain(const Concerns& concernsFolder) {
  static const char* const kLooking = ::getenv("FAULTS_LOOKING");
  if (kLooking == nullptr || inside) { return false; }
  if (std::strcmp(kLooking, "below") == 0 && !concernsFolder()) { return false; }
  const Inside own;
  return failsNow();
}

using Words = std::vector<std::string>;

// A row: the call's name, its words, the length of its bytes, each ended by a NUL; then the bytes.
void noteDone(const Words& words, const void* bytes = nullptr, size_t size = 0) {
  static const char* const kLog = ::getenv("FAULTS_LOG");
  if (kLog == nullptr) { return; }
  const int error = errno;
  std::string row;
  for (const std::string& word : words) { row += word + '\0'; }
  row += std::to_string(size) + '\0';
  if (size > 0) { row.append(static_cast<const char*>(bytes), size); }
  appendTo(kLog, row, O_APPEND);
  errno = error;
}

template <class Call>
int opened(int folder, const char* name, int flags, const Call& call) {
  if (looksInVain([&] { return concernsName(folder, name); })) { return -1; }
  if (inside || (flags & (O_CREAT | O_TRUNC | O_WRONLY | O_RDWR)) == 0) { return call(); }
  const Inside own;
  const std::string path = pathOf(folder, name);
  if (!isWatched(path)) { return call(); }
  if (failsNow()) { return -1; }
  struct stat status {};
  const bool there = ::stat(path.c_str(), &status) == 0;
  const int descriptor = call();
  if (descriptor < 0) { return descriptor; }
  if (!there) { noteDone({"create", path, inodeOf(descriptor)}); }
  if (there && (flags & O_TRUNC) != 0) { noteDone({"truncate", inodeOf(descriptor), "0"}); }
  return descriptor;
}

mode_t modeOf(int flags, va_list arguments) { return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0; }

template <class Call>
ssize_t written(int descriptor, const void* bytes, off_t at, const Call& call) {
  const Inside own;
  if (failsNow()) { return -1; }
  const ssize_t count = call();
  if (count > 0) { noteDone({"write", inodeOf(descriptor), std::to_string(at)}, bytes, static_cast<size_t>(count)); }
  return count;
}

// A call that is watched, or not; the words tell what was done when it went well.
template <class Call, class Told>
int changed(bool watched, const Call& call, const Told& words) {
  if (!watched) { return call(); }
  const Inside own;
  if (failsNow()) { return -1; }
  const int result = call();
  if (result == 0) { noteDone(words()); }
  return result;
}

template <class Call>
int synced(int descriptor, const Call& call) {
  return changed(concerns(descriptor), call, [&] { return Words{"sync", inodeOf(descriptor), linkOf(descriptor)}; });
}

template <class Call>
int truncated(int descriptor, off_t size, const Call& call) {
  return changed(concerns(descriptor), call, [&] {
    return Words{"truncate", inodeOf(descriptor), std::to_string(size)};
  });
}

template <class Call>
int renamed(int folder, const char* from, int newFolder, const char* to, const Call& call) {
  return changed(concernsName(newFolder, to), call, [&] {
    return Words{"rename", pathOf(folder, from), pathOf(newFolder, to)};
  });
}

template <class Call>
int onName(const char* what, int folder, const char* name, const Call& call) {
  return changed(concernsName(folder, name), call, [&] { return Words{what, pathOf(folder, name)}; });
}

std::FILE* openedFile(const char* name, const char* mode, std::FILE* (*call)(const char*, const char*)) {
  std::FILE* file = nullptr;
  const bool writes = std::strpbrk(mode, "wa+") != nullptr;
  const int flags = !writes ? O_RDONLY : mode[0] == 'w' ? O_CREAT | O_TRUNC | O_WRONLY : O_CREAT | O_WRONLY;
  opened(AT_FDCWD, name, flags, [&] {
    file = call(name, mode);
    return file == nullptr ? -1 : ::fileno(file);
  });
  return file;
}

}  // namespace

extern "C" {

// The last argument is an argument list, brackets included.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define OPENING(call, folder, declared, passed)                            \
  int call declared {                                                      \
    va_list arguments;                                                     \
    va_start(arguments, flags);                                            \
    const mode_t mode = modeOf(flags, arguments);                          \
    va_end(arguments);                                                     \
    return opened(folder, name, flags, [&] { return NEXT(call) passed; }); \
  }
OPENING(open, AT_FDCWD, (const char* name, int flags, ...), (name, flags, mode))
OPENING(open64, AT_FDCWD, (const char* name, int flags, ...), (name, flags, mode))
OPENING(openat, folder, (int folder, const char* name, int flags, ...), (folder, name, flags, mode))
OPENING(openat64, folder, (int folder, const char* name, int flags, ...), (folder, name, flags, mode))
// NOLINTEND(bugprone-macro-parentheses)
std::FILE* fopen(const char* name, const char* mode) {
  return openedFile(name, mode, next<decltype(::fopen)>("fopen"));
}
std::FILE* fopen64(const char* name, const char* mode) {
  return openedFile(name, mode, next<decltype(::fopen64)>("fopen64"));
}

// Whether this write, to be cut already, is interrupted before it has written anything.
bool cutsShort(size_t& size) {
  static const char* const kDo = ::getenv("FAULTS_DO");
  static std::atomic<int> writes{0};
  if (kDo == nullptr || std::strcmp(kDo, "short") != 0) { return false; }
  constexpr size_t kMost = 1000;
  size = std::min(size, kMost);
  errno = EINTR;
  return ++writes % 2 == 0;
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
  const auto call = [&] { return NEXT(write)(descriptor, bytes, size); };
  if (!concerns(descriptor)) { return call(); }
  if (cutsShort(size)) { return -1; }
  return written(descriptor, bytes, ::lseek(descriptor, 0, SEEK_CUR), call);
}
ssize_t pwrite(int descriptor, const void* bytes, size_t size, off_t at) {
  const auto call = [&] { return NEXT(pwrite)(descriptor, bytes, size, at); };
  return concerns(descriptor) ? written(descriptor, bytes, at, call) : call();
}
ssize_t pwrite64(int descriptor, const void* bytes, size_t size, off_t at) {
  const auto call = [&] { return NEXT(pwrite64)(descriptor, bytes, size, at); };
  return concerns(descriptor) ? written(descriptor, bytes, at, call) : call();
}
ssize_t writev(int descriptor, const iovec* pieces, int count) {
  if (!concerns(descriptor)) { return NEXT(writev)(descriptor, pieces, count); }
  ssize_t all = 0;
  for (int piece = 0; piece < count; ++piece) {
    if (pieces[piece].iov_len == 0) { continue; }
    const ssize_t done = write(descriptor, pieces[piece].iov_base, pieces[piece].iov_len);
    if (done < 0) { return all > 0 ? all : done; }
    all += done;
  }
  return all;
}
// Their callers fall back on reading and writing.
ssize_t sendfile(int to, int from, off_t* at, size_t size) {
  if (!concerns(to)) { return NEXT(sendfile)(to, from, at, size); }
  errno = EINVAL;
  return -1;
}
ssize_t copy_file_range(int from, off64_t* at, int to, off64_t* toAt, size_t size, unsigned flags) {
  if (!concerns(to)) { return NEXT(copy_file_range)(from, at, to, toAt, size, flags); }
  errno = EINVAL;
  return -1;
}

int fsync(int descriptor) {
  return synced(descriptor, [&] { return NEXT(fsync)(descriptor); });
}
int fdatasync(int descriptor) {
  return synced(descriptor, [&] { return NEXT(fdatasync)(descriptor); });
}
int ftruncate(int descriptor, off_t size) noexcept {
  return truncated(descriptor, size, [&] { return NEXT(ftruncate)(descriptor, size); });
}
int ftruncate64(int descriptor, off64_t size) noexcept {
  return truncated(descriptor, size, [&] { return NEXT(ftruncate64)(descriptor, size); });
}
int rename(const char* from, const char* to) noexcept {
  return renamed(AT_FDCWD, from, AT_FDCWD, to, [&] { return NEXT(rename)(from, to); });
}
int renameat(int folder, const char* from, int newFolder, const char* to) noexcept {
  return renamed(folder, from, newFolder, to, [&] { return NEXT(renameat)(folder, from, newFolder, to); });
}
int unlink(const char* name) noexcept {
  return onName("remove", AT_FDCWD, name, [&] { return NEXT(unlink)(name); });
}
int unlinkat(int folder, const char* name, int flags) noexcept {
  return onName("remove", folder, name, [&] { return NEXT(unlinkat)(folder, name, flags); });
}
int mkdir(const char* name, mode_t mode) noexcept {
  return onName("mkdir", AT_FDCWD, name, [&] { return NEXT(mkdir)(name, mode); });
}
int fchmod(int descriptor, mode_t mode) noexcept {
  if (concerns(descriptor) && failsNow()) { return -1; }
  return NEXT(fchmod)(descriptor, mode);
}

// A descriptor that the system could not close well is closed all the same.
int close(int descriptor) {
  if (!looksInVain([&] { return concerns(descriptor); })) { return NEXT(close)(descriptor); }
  const int error = errno;
  NEXT(close)(descriptor);
  errno = error;
  return -1;
}
#define LOOKING(call, declared, passed, concerned)                            \
  int call declared noexcept {                                                \
    return looksInVain([&] { return (concerned); }) ? -1 : NEXT(call) passed; \
  }
// NOLINTBEGIN(bugprone-macro-parentheses)
LOOKING(stat, (const char* name, struct stat* status), (name, status), concernsName(AT_FDCWD, name))
LOOKING(stat64, (const char* name, struct stat64* status), (name, status), concernsName(AT_FDCWD, name))
LOOKING(lstat, (const char* name, struct stat* status), (name, status), concernsName(AT_FDCWD, name))
LOOKING(lstat64, (const char* name, struct stat64* status), (name, status), concernsName(AT_FDCWD, name))
LOOKING(fstat, (int descriptor, struct stat* status), (descriptor, status), concerns(descriptor))
LOOKING(fstat64, (int descriptor, struct stat64* status), (descriptor, status), concerns(descriptor))
LOOKING(fstatat, (int folder, const char* name, struct stat* status, int flags), (folder, name, status, flags),
        concernsName(folder, name))
LOOKING(statx, (int folder, const char* name, int flags, unsigned mask, struct statx* status),
        (folder, name, flags, mask, status), concernsName(folder, name))
LOOKING(access, (const char* name, int mode), (name, mode), concernsName(AT_FDCWD, name))
LOOKING(faccessat, (int folder, const char* name, int mode, int flags), (folder, name, mode, flags),
        concernsName(folder, name))
LOOKING(flock, (int descriptor, int operation), (descriptor, operation), concerns(descriptor))
// NOLINTEND(bugprone-macro-parentheses)

}  // extern "C"

void* operator new(size_t size) {
  static const long kNewAt = numberOf("FAULTS_NEW_AT");
  static std::atomic<long> made{0};
  if (kNewAt > 0 && armed && !inside && ++made == kNewAt) { throw std::bad_alloc(); }
  void* const memory = ::malloc(size == 0 ? 1 : size);
  if (memory == nullptr) { throw std::bad_alloc(); }
  return memory;
}
void operator delete(void* memory) noexcept { ::free(memory); }
void operator delete(void* memory, size_t) noexcept { ::free(memory); }
