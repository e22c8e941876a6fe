#include <filesystem>
#include <string>
#include <string_view>

#include "frame/host/core_services.h"
#include "fuzz/byte_choices.h"
#include "fuzz/laws.h"
#include "fuzz/scratch_folder.h"
#include "host/core/file_services.h"
#include "host/core/path_names.h"

// Each line is a path that a drawing or a script names, in a folder from which links lead out. What is to be read
// inside lies inside, what is to be written or deleted lies below the output folder, and nothing else changes.
namespace {

using namespace fuzzing;
namespace fs = std::filesystem;

class Tree {
 public:
  Tree() {
    for (const char* file : {"base/plan.ini", "base/Sub/Deeper/W1.drg", "base/Sub/w1.DRG", "base/caf\xC3\xA9.ini",
                             "outside/secret.ini", "data/plan.ini", "out/kept.ini"}) {
      folder_.write(file, "[a]\nb=1\n");
    }
    fs::create_directory_symlink("../outside", base() + "/leads_out");
    fs::create_symlink("../outside/secret.ini", base() + "/secret.ini");
    fs::create_directory_symlink("../outside", path("out") + "/leads_out");
    fs::create_directory_symlink("Sub", base() + "/stays");
    fs::create_symlink("loop", base() + "/loop");
    before_ = filesOutside();
  }
  [[nodiscard]] std::string path(const std::string& name) const { return folder_.path() + '/' + name; }
  [[nodiscard]] std::string base() const { return path("base"); }
  void requireSameOutside() const { require(filesOutside() == before_); }
  void emptyOutput() const {
    for (const auto& entry : fs::directory_iterator(path("out"))) {
      const std::string name = entry.path().filename().string();
      if (name != "kept.ini" && name != "leads_out") { fs::remove_all(entry.path()); }
    }
  }

 private:
  [[nodiscard]] std::string filesOutside() const {
    std::string all;
    for (const char* name : {"base", "outside", "data"}) {
      for (const auto& entry : fs::recursive_directory_iterator(path(name))) {
        std::error_code none;  // of a link to itself
        all += entry.path().string() + ' ' + std::to_string(entry.is_regular_file(none) ? entry.file_size() : 0) + '\n';
      }
    }
    return all;
  }

  ScratchFolder folder_;
  std::string before_;
};

// As the system would follow it: without what stands behind a NUL.
bool reachesInto(const std::string& path, const std::string& folder) {
  return path.find('\0') == std::string::npos && brevan::liesBelow(brevan::physicalPath(path), folder);
}

void inside(const Tree& tree, std::string_view path) {
  try {
    require(reachesInto(brevan::resolveInside(tree.base(), path), tree.base()));
  } catch (const HostFailure&) { return; }
}

void confined(const Tree& tree, brevan::FileServices& files, std::string_view path) {
  try {
    require(reachesInto(files.resolveForDeleting(path), tree.path("out")));
  } catch (const HostFailure&) {}
  try {
    const std::string read = files.resolveForReading(path);
    require(read.find('\0') == std::string::npos);
  } catch (const HostFailure&) {}
  try {
    const brevan::FileServices::NamedByScript named(files);
    const std::string read = files.resolveForReading(path);
    require(path.empty() || reachesInto(read, tree.base()) || reachesInto(read, tree.path("out")) ||
            reachesInto(read, tree.path("data")));
  } catch (const HostFailure&) {}
  try {
    require(reachesInto(files.resolveForWriting(path), tree.path("out")));
  } catch (const HostFailure&) {}
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Tree tree;
  ByteChoices lines(data, size);
  brevan::FileServices files(tree.base(), tree.path("data"),
                             brevan::FileServices::Confinement{tree.path("out"), nullptr});
  for (int line = 0; line < 4 && !lines.done(); ++line) {
    const std::string_view path = lines.line();
    inside(tree, path);
    confined(tree, files, path);
  }
  tree.requireSameOutside();
  tree.emptyOutput();
  return 0;
}
