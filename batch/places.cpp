#include "batch/places.h"

#include <cstdlib>
#include <filesystem>
#include <vector>

#include "batch/exit_codes.h"

namespace brevan {

namespace fs = std::filesystem;

namespace {

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
  throw InputUnread(what + " was not found; looked for " + tried);
}

}  // namespace

Places findPlaces(const std::string& dataOption) {
  const fs::path program = programFolder();
  if (!dataOption.empty() && !fs::is_directory(dataOption)) {
    throw InputUnread("the data folder \"" + dataOption + "\" is not there");
  }
  Places places;
  places.dataFolder = firstThere(
      {dataOption, environment("BREVAN_DATA"), program / "../share/brevan", BREVAN_SOURCE_DATA}, "the data folder");
  places.module =
      firstThere({environment("ARDENIX_MODULE"), program / "libardenix.so", program / "../lib/brevan/libardenix.so"},
                 "the module libardenix.so");
  places.helpFile = (fs::path(places.dataFolder) / "Brevan.hlp").string();
  return places;
}

}  // namespace brevan
