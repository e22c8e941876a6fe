#include "desktop/recovery.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/files/drawing_files.h"

namespace brevan {

namespace fs = std::filesystem;

namespace {

bool isAlive(long long process) { return kill(static_cast<pid_t>(process), 0) == 0 || errno == EPERM; }

// "4711-2-Drawing1.drg"
std::optional<long long> processOf(const std::string& fileName) {
  return numberText::parseInteger(fileName.substr(0, fileName.find('-')));
}

}  // namespace

Recovery::Recovery(std::string folder) : folder_(std::move(folder)) {}

std::string Recovery::newPath(const std::string& name) {
  std::string plain = toUtf8(name);
  for (char& c : plain) {
    if (c == '/' || c == '\\') { c = '_'; }
  }
  return folder_ + '/' + std::to_string(getpid()) + '-' + std::to_string(++files_) + '-' + plain + ".drg";
}

DrgUpkeep& Recovery::started(const std::string& name, Drawing& drawing, const std::string& base) {
  return kept_
      .try_emplace(
          name, [this, name] { return newPath(name); }, drawing, base)
      .first->second;
}

void Recovery::begin(const std::string& name, Drawing& drawing, const std::string& file) {
  drop(name);
  static_cast<void>(started(name, drawing, file));
}

std::string Recovery::keep(const std::string& name, Drawing& drawing) {
  try {
    fs::create_directories(folder_);
    started(name, drawing, "").keep(drawing);
    return "";
  } catch (const std::exception& failure) { return failure.what(); }
}

void Recovery::drop(const std::string& name) {
  const auto entry = kept_.find(name);
  if (entry == kept_.end()) { return; }
  const std::string path = entry->second.path();
  kept_.erase(entry);  // closes the file
  if (!path.empty()) { remove(path); }
}

std::vector<Recovery::Kept> Recovery::left() const {
  std::vector<Kept> kept;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder_, ignored)) {
    const std::string fileName = entry.path().filename().string();
    const auto process = processOf(fileName);
    if (!process || isAlive(*process) || entry.path().extension() != ".drg") { continue; }
    const std::string stem = entry.path().stem().string();
    const size_t number = stem.find('-');
    const size_t name = number == std::string::npos ? number : stem.find('-', number + 1);
    kept.push_back({entry.path().string(),
                    toWindows1252(name == std::string::npos ? stem : stem.substr(name + 1)).value_or("Drawing")});
  }
  return kept;
}

Drawing Recovery::read(const std::string& file) {
  DrgUpkeep::settle(file);
  return readDrawing(file).drawing;
}

}  // namespace brevan
