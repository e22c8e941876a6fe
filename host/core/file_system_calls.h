#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <string>

namespace brevan {

// The system calls that saving a file is made of, each as its manual page says. A class, so that a test
// can make any one of them fail.
class FileSystemCalls {
 public:
  virtual ~FileSystemCalls() = default;
  virtual int openAt(int folder, const char* name, int flags, mode_t mode) const;
  virtual int statAt(int folder, const char* name, struct stat& status, int flags) const;
  virtual int accessAt(int folder, const char* name, int mode) const;
  virtual int lock(int descriptor, int operation) const;
  virtual ssize_t write(int descriptor, const char* bytes, size_t count) const;
  virtual int changeMode(int descriptor, mode_t mode) const;
  virtual int sync(int descriptor) const;
  virtual int close(int descriptor) const;
  virtual int renameAt(int folder, const char* from, const char* to) const;
  virtual int unlinkAt(int folder, const char* name) const;

  static const FileSystemCalls& posix();
};

// The reason of a system call's failure, in English whatever the locale.
std::string systemReason(int errorNumber);

}  // namespace brevan
