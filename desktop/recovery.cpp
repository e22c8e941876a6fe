#include "desktop/recovery.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "host/core/safe_file.h"
#include "host/core/text_encoding.h"
#include "host/files/drg_writer.h"

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

Recovery::File& Recovery::fileOf(const std::string& name) {
  const auto [entry, isNew] = files_.try_emplace(name);
  if (isNew) {
    std::string plain = toUtf8(name);
    for (char& c : plain) {
      if (c == '/' || c == '\\') { c = '_'; }
    }
    entry->second.path =
        folder_ + '/' + std::to_string(getpid()) + '-' + std::to_string(files_.size()) + '-' + plain + ".drg";
  }
  return entry->second;
}

std::string Recovery::keep(const std::string& name, const Drawing& drawing) {
  try {
    File& file = fileOf(name);
    if (file.revision == drawing.revision()) { return ""; }
    fs::create_directories(folder_);
    saveWhole(file.path, drawingDrg(drawing));
    file.revision = drawing.revision();
    return "";
  } catch (const std::exception& failure) { return failure.what(); }
}

void Recovery::drop(const std::string& name) {
  const auto entry = files_.find(name);
  if (entry == files_.end()) { return; }
  remove(entry->second.path);
  files_.erase(entry);
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

void Recovery::remove(const std::string& file) {
  std::error_code ignored;
  fs::remove(file, ignored);
}

}  // namespace brevan
