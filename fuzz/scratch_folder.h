#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace fuzzing {

// A folder of the target's own, gone at its end. Point TMPDIR to a memory file system, since saving waits for the disk.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "fuzz-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) { std::abort(); }
    path_ = pattern;
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() { std::filesystem::remove_all(path_); }

  [[nodiscard]] const std::string& path() const { return path_; }
  std::string write(const std::string& name, std::string_view bytes) const {
    const std::filesystem::path path = std::filesystem::path(path_) / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return path.string();
  }
  void empty() const {
    for (const auto& entry : std::filesystem::directory_iterator(path_)) { std::filesystem::remove_all(entry.path()); }
  }

 private:
  std::string path_;
};

}  // namespace fuzzing
