#include "host/core/stamps.h"

#include <cerrno>
#include <functional>

#include "host/core/system_reason.h"
#include "host/core/text_encoding.h"

namespace brevan {
namespace {

int64_t nanoseconds(const timespec& time) { return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; }

}  // namespace

FileStamp stampFrom(const struct stat& status) {
  FileStamp stamp;
  stamp.exists = true;
  stamp.device = status.st_dev;
  stamp.inode = status.st_ino;
  stamp.size = status.st_size;
  stamp.modifiedNanoseconds = nanoseconds(status.st_mtim);
  stamp.changedNanoseconds = nanoseconds(status.st_ctim);
  return stamp;
}

std::string_view irregularReason(const struct stat& status) {
  if (S_ISDIR(status.st_mode)) { return "it is a folder"; }
  if (S_ISFIFO(status.st_mode)) { return "it is a pipe"; }
  if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode)) { return "it is a device"; }
  return "it is no regular file";
}

FileStamp stampOf(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) { return stampFrom(status); }
  if (errno == ENOENT || errno == ENOTDIR) { return {}; }
  throw HostFailure("cannot look at \"" + messageText(path) + "\": " + systemReason(errno));
}

ContentHash contentHash(std::string_view bytes) {
  const ContentHash hash = std::hash<std::string_view>{}(bytes);
  return hash == kNoFile ? 1 : hash;
}

FileChangedFailure::~FileChangedFailure() = default;

}  // namespace brevan
