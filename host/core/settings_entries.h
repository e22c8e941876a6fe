#pragma once

#include <string>
#include <vector>

#include "frame/host/ini.h"

namespace brevan {

struct SettingEntry {
  std::string section;
  std::string key;
  std::string value;
};

// What the settings hold, in the order of their text; of several equal entries the one that counts.
std::vector<SettingEntry> entriesOf(const INI_LIST& settings);

}  // namespace brevan
