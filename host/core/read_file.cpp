#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>

#include "host/core/safe_file.h"
#include "host/core/stamps.h"
#include "host/core/system_reason.h"
#include "host/core/text_encoding.h"

namespace brevan {
namespace {

[[noreturn]] void failReading(const std::string& path, std::string_view reason) {
  throw HostFailure("cannot read \"" + messageText(path) + "\": " + std::string(reason));
}

struct Descriptor {
  int number;
  explicit Descriptor(int opened) : number(opened) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number >= 0) { ::close(number); }
  }
};

void refuseIrregular(const std::string& path, const struct stat& status) {
  if (!S_ISREG(status.st_mode)) { failReading(path, irregularReason(status)); }
}

// Looked at before it is opened, because opening a device can act on it.
int openRegular(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) { failReading(path, systemReason(errno)); }
  refuseIrregular(path, status);
  int descriptor = -1;
  do {
    descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) { failReading(path, systemReason(errno)); }
  return descriptor;
}

template <class Bytes>
Bytes readAll(const std::string& path, size_t limit, FileStamp* stamp) {
  const Descriptor file(openRegular(path));
  struct stat status {};
  if (::fstat(file.number, &status) != 0) { failReading(path, systemReason(errno)); }
  refuseIrregular(path, status);
  const auto failAsTooLarge = [&] { failReading(path, "it is larger than " + std::to_string(limit) + " bytes"); };
  if (static_cast<size_t>(status.st_size) > limit) { failAsTooLarge(); }
  Bytes bytes;
  bytes.resize(static_cast<size_t>(status.st_size) + 1);
  size_t done = 0;
  while (true) {
    const ssize_t count = ::read(file.number, bytes.data() + done, bytes.size() - done);
    if (count < 0 && errno == EINTR) { continue; }
    if (count < 0) { failReading(path, systemReason(errno)); }
    if (count == 0) { break; }
    done += static_cast<size_t>(count);
    if (done > limit) { failAsTooLarge(); }  // it grew meanwhile
    if (done == bytes.size()) { bytes.resize(std::min(2 * bytes.size(), limit + 1)); }
  }
  bytes.resize(done);
  if (stamp != nullptr) { *stamp = stampFrom(status); }
  return bytes;
}

}  // namespace

void FileBytes::Free::operator()(char* bytes) const { std::free(bytes); }

// In huge pages where the system has them: touching a page for the first time costs as much as reading it.
FileBytes::FileBytes(size_t size) : size_(size) {
  constexpr size_t kHugePage = size_t{1} << 21;
  if (size == 0) { return; }
  if (size < kHugePage) {
    bytes_.reset(static_cast<char*>(std::malloc(size)));
  } else {
    const size_t whole = (size + kHugePage - 1) / kHugePage * kHugePage;
    bytes_.reset(static_cast<char*>(std::aligned_alloc(kHugePage, whole)));
    if (bytes_ != nullptr) { ::madvise(bytes_.get(), whole, MADV_HUGEPAGE); }
  }
  if (bytes_ == nullptr) { throw std::bad_alloc(); }
}

void FileBytes::resize(size_t size) {
  if (size > size_) {
    FileBytes larger(size);
    std::copy_n(data(), size_, larger.data());
    *this = std::move(larger);
  }
  size_ = size;
}

std::string readWhole(const std::string& path, size_t limit, FileStamp* stamp) {
  return readAll<std::string>(path, limit, stamp);
}

FileBytes readBytes(const std::string& path, size_t limit) { return readAll<FileBytes>(path, limit, nullptr); }

}  // namespace brevan
