#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "frame/host/core_services.h"

namespace brevan {

// Whole files in and out. Paths are native (UTF-8); every failure is a HostFailure with path and reason.

// Tells whether the file at a path is still the one that was seen.
struct FileStamp {
  bool exists = false;
  uint64_t device = 0;
  uint64_t inode = 0;
  int64_t size = 0;
  int64_t modifiedNanoseconds = 0;
  int64_t changedNanoseconds = 0;
  bool operator==(const FileStamp&) const = default;
};
FileStamp stampOf(const std::string& path);

// A file that others write within one tick of the clock can keep its stamp, so where an update must not
// get lost the content counts. Meaningful within one process only.
using ContentHash = uint64_t;
constexpr ContentHash kNoFile = 0;
ContentHash contentHash(std::string_view bytes);

// The target is not what the options of saveWhole expected; nothing was written.
class FileChangedFailure : public HostFailure {
 public:
  using HostFailure::HostFailure;
  ~FileChangedFailure() override;
};

struct SaveOptions {
  // Where one is given, the target must still be so, seen under the lock.
  std::optional<FileStamp> expectedStamp;
  std::optional<ContentHash> expectedContent;
  std::chrono::milliseconds lockWait{5000};
};

// Makes the file hold these bytes, durably, or leaves it as it was: a temporary file beside it is written,
// synchronised and renamed onto it under an advisory lock on the folder. Mode and a symbolic link to the
// file stay. When the last step, making the new name durable, fails, the file is new and the failure is
// reported all the same. Returns the stamp of the new file.
FileStamp saveWhole(const std::string& path, std::string_view bytes, const SaveOptions& options = {});

// The content of a regular file of at most limit bytes; folders, pipes and devices are refused without
// waiting. The stamp, where one is asked for, is that of the content read.
std::string readWhole(const std::string& path, size_t limit, FileStamp* stamp = nullptr);

// The same for files so large that it counts to touch their bytes once less than a string does.
class FileBytes {
 public:
  explicit FileBytes(size_t size = 0);
  [[nodiscard]] char* data() const { return bytes_.get(); }
  [[nodiscard]] size_t size() const { return size_; }
  [[nodiscard]] std::string_view view() const { return {bytes_.get(), size_}; }
  void resize(size_t size);

 private:
  struct Free {
    void operator()(char* bytes) const;
  };
  std::unique_ptr<char, Free> bytes_;
  size_t size_ = 0;
};
FileBytes readBytes(const std::string& path, size_t limit);

}  // namespace brevan
