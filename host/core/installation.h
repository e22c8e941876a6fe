#pragma once

#include <string>

namespace brevan {

// Where the program finds what belongs to it. Paths are UTF-8.
struct Places {
  std::string dataFolder;  // BREVAN_DATA, or beside the program (../share/brevan)
  std::string module;      // ARDENIX_MODULE, beside the program, or ../lib/brevan
  std::string helpFile;    // of the host, beside its data
};

// `dataOption` goes before every other place where it is not empty. Throws HostFailure where the data
// folder or the module is nowhere.
Places findPlaces(const std::string& dataOption);

// The settings that a person's programs share: brevan/settings.ini below XDG_CONFIG_HOME, by default
// ~/.config. Throws HostFailure where neither that nor HOME is set.
std::string userSettingsFile();

// A person's own copy of the libraries that ship, since commands change them: what the folder lacks is copied into it,
// each file whole or not at all. Returns the folder, or the shipped one where that cannot be done.
std::string ownData(const std::string& shipped, const std::string& own);

}  // namespace brevan
