#include "host/core/file_system_calls.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace brevan {

int FileSystemCalls::openAt(int folder, const char* name, int flags, mode_t mode) const {
  return ::openat(folder, name, flags, mode);
}
int FileSystemCalls::statAt(int folder, const char* name, struct stat& status, int flags) const {
  return ::fstatat(folder, name, &status, flags);
}
int FileSystemCalls::accessAt(int folder, const char* name, int mode) const {
  return ::faccessat(folder, name, mode, AT_EACCESS);
}
int FileSystemCalls::lock(int descriptor, int operation) const { return ::flock(descriptor, operation); }
ssize_t FileSystemCalls::write(int descriptor, const char* bytes, size_t count) const {
  return ::write(descriptor, bytes, count);
}
int FileSystemCalls::changeMode(int descriptor, mode_t mode) const { return ::fchmod(descriptor, mode); }
int FileSystemCalls::sync(int descriptor) const { return ::fsync(descriptor); }
int FileSystemCalls::close(int descriptor) const { return ::close(descriptor); }
int FileSystemCalls::renameAt(int folder, const char* from, const char* to) const {
  return ::renameat(folder, from, folder, to);
}
int FileSystemCalls::unlinkAt(int folder, const char* name) const { return ::unlinkat(folder, name, 0); }

const FileSystemCalls& FileSystemCalls::posix() {
  static const FileSystemCalls calls;
  return calls;
}

std::string systemReason(int errorNumber) {
  const char* const text = ::strerrordesc_np(errorNumber);
  return text != nullptr ? text : "error " + std::to_string(errorNumber);
}

}  // namespace brevan
