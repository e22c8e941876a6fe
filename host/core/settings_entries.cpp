#include "host/core/settings_entries.h"

#include "host/core/ini_file.h"

namespace brevan {

std::vector<SettingEntry> entriesOf(const INI_LIST& settings) {
  std::string text;
  for (const INI_LINE* line = settings.First(); line != nullptr; line = line->Next()) { text += line->Text() + '\n'; }
  const IniFile file = IniFile::parse(std::move(text));
  std::vector<SettingEntry> entries;
  for (const IniEntry& entry : file.entries()) {
    if (file.lookup(entry.section, entry.key) != entry.value) { continue; }
    entries.push_back({std::string(entry.section), std::string(entry.key), std::string(entry.value)});
  }
  return entries;
}

}  // namespace brevan
