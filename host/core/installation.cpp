#include "host/core/installation.h"

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "frame/host/core_services.h"
#include "host/core/safe_file.h"

namespace brevan {

namespace fs = std::filesystem;

namespace {

constexpr size_t kMostDataBytes = size_t{1} << 30;

fs::path programFolder() { return fs::read_symlink("/proc/self/exe").parent_path(); }

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::string firstThere(const std::vector<fs::path>& candidates, const std::string& what) {
  std::string tried;
  for (const fs::path& candidate : candidates) {
    std::error_code ignored;
    if (candidate.empty()) { continue; }
    if (fs::exists(candidate, ignored)) { return fs::absolute(candidate).lexically_normal().string(); }
    tried += (tried.empty() ? "" : ", ") + candidate.string();
  }
  throw HostFailure(what + " was not found; looked for " + tried);
}

}  // namespace

Places findPlaces(const std::string& dataOption) {
  const fs::path program = programFolder();
  if (!dataOption.empty() && !fs::is_directory(dataOption)) {
    throw HostFailure("the data folder \"" + dataOption + "\" is not there");
  }
  Places places;
  places.dataFolder =
      firstThere({dataOption, environment("BREVAN_DATA"), program / "../share/brevan"}, "the data folder");
  places.module =
      firstThere({environment("ARDENIX_MODULE"), program / "libardenix.so", program / "../lib/brevan/libardenix.so"},
                 "the module libardenix.so");
  places.helpFile = (fs::path(places.dataFolder) / "Brevan.hlp").string();
  return places;
}

std::string userSettingsFile() {
  // A relative XDG_CONFIG_HOME counts as not set, as the base directory rules have it.
  const fs::path configured = environment("XDG_CONFIG_HOME");
  const std::string home = environment("HOME");
  if (!configured.is_absolute() && home.empty()) { throw HostFailure("neither XDG_CONFIG_HOME nor HOME is set"); }
  const fs::path folder = configured.is_absolute() ? configured : fs::path(home) / ".config";
  return (folder / "brevan" / "settings.ini").string();
}

std::string ownData(const std::string& shipped, const std::string& own) {
  try {
    fs::create_directories(own);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(shipped)) {
      const fs::path copy = fs::path(own) / fs::relative(entry.path(), shipped);
      if (entry.is_directory()) { fs::create_directories(copy); }
      if (!entry.is_regular_file() || fs::exists(copy)) { continue; }
      saveWhole(copy.string(), readWhole(entry.path().string(), kMostDataBytes));
    }
    return own;
  } catch (const fs::filesystem_error&) { return shipped; } catch (const HostFailure&) {
    return shipped;
  }
}

}  // namespace brevan
