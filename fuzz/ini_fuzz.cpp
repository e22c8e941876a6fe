#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/core_services.h"
#include "fuzz/laws.h"
#include "host/core/ini_file.h"

// The first byte says how many edits follow, each three bytes: what to do and with which section and key.
// The rest is the file. Every edit must show in a lookup, the bytes must read back as the same entries, and a
// file without changes must keep its bytes.
namespace {

using fuzzing::require;

using brevan::IniFile;

// What a lookup must find, read the slow way: the key's first line in the first section of the name.
std::optional<std::string> slowLookup(const std::string& text, std::string_view section, std::string_view key) {
  bool inSection = false;
  for (size_t at = 0; at < text.size();) {
    const size_t end = std::min(text.find_first_of("\r\n", at), text.size());
    const std::string_view line = brevan::trimmed(std::string_view(text).substr(at, end - at));
    at = end + 1;
    const size_t close = line.find(']');
    if (line.starts_with('[') && close != std::string_view::npos) {
      if (inSection) { return std::nullopt; }
      inSection = brevan::equalWithoutCase(brevan::trimmed(line.substr(1, close - 1)), section);
    }
    const size_t equals = line.find('=');
    if (!inSection || line.starts_with(';') || line.starts_with('[') || equals == std::string_view::npos) { continue; }
    if (equals > 0 && brevan::equalWithoutCase(brevan::trimmed(line.substr(0, equals)), key)) {
      return std::string(brevan::trimmed(line.substr(equals + 1)));
    }
  }
  return std::nullopt;
}

// A name from the file itself, so that edits meet what is there, or else one that is new.
std::string nameFrom(const std::vector<brevan::IniEntry>& entries, uint8_t choice, bool section) {
  if (entries.empty() || choice >= 200) { return (section ? "Section" : "Key") + std::to_string(choice % 8); }
  const brevan::IniEntry& entry = entries[choice % entries.size()];
  return std::string(section ? entry.section : entry.key);
}

void edit(IniFile& file, const uint8_t* bytes, const std::vector<brevan::IniEntry>& names) {
  const std::string section = nameFrom(names, bytes[1], true);
  const std::string key = nameFrom(names, bytes[2], false);
  const std::string value = "value" + std::string(bytes[0] % 5, '=') + std::to_string(bytes[0]);
  switch (bytes[0] % 4) {
    case 0:
    case 1: try { file.set(section, key, value);
      } catch (const HostFailure&) { return; }
      require(file.lookup(section, key) == value);
      break;
    case 2:
      file.deleteKey(section, key);
      require(!file.lookup(section, key));
      break;
    default:
      file.eraseSection(section);
      require(!file.lookup(section, key));
      break;
  }
}

void use(const std::string& text, const uint8_t* edits, size_t count) {
  IniFile file = IniFile::parse(text);
  require(file.bytes() == text);
  const IniFile original = IniFile::parse(text);
  const std::vector<brevan::IniEntry> names = original.entries();
  for (const brevan::IniEntry& entry : names) {
    if (text.starts_with("\xEF\xBB\xBF")) { break; }
    const std::optional<std::string_view> found = file.lookup(entry.section, entry.key);
    require(found == slowLookup(text, entry.section, entry.key));
  }
  for (size_t i = 0; i < count; ++i) { edit(file, edits + 3 * i, names); }
  require(file.changed() || file.bytes() == text);
  const IniFile readBack = IniFile::parse(file.bytes());
  require(readBack.entries() == file.entries());
  require(readBack.bytes() == file.bytes());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) { return 0; }
  const size_t count = data[0] % 16;
  if (size < 1 + 3 * count) { return 0; }
  const std::string text(reinterpret_cast<const char*>(data) + 1 + 3 * count, size - 1 - 3 * count);
  try {
    use(text, data + 1, count);
  } catch (const HostFailure&) { return 0; }
  return 0;
}
