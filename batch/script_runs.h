#pragma once

#include <string>
#include <vector>

#include "host/core/installation.h"

namespace brevan {

struct RunOptions {
  std::vector<std::string> scripts;
  std::string outputFolder = ".";
  std::string transcript;                // empty: none
  std::string settings;                  // empty: built-in settings
  std::vector<std::string> readFolders;  // besides the scripts' own
};

// Plays scripts one after another, each in a host of its own. Throws ScriptFailure, InputUnread,
// OutputUnwritten or Interrupted; scripts after the one that failed are not played.
void runScripts(const RunOptions& options, const Places& places);

}  // namespace brevan
