#include "mech/definition_store.h"

#include "frame/records.h"
#include "mech/definition_kinds.h"

namespace ardenix::mech {

namespace {

std::string key(std::string_view section, int n) {
  return std::string(definitionKind(section).keyPrefix) + std::to_string(n);
}

}  // namespace

DefinitionStore::DefinitionStore(std::string_view fileName) : file_(fileName) {
  for (const DefinitionKind& kind : definitionKinds()) {
    int& count = counts_[std::string(kind.section)];
    while (record(kind.section, count + 1)) { ++count; }
  }
}

int DefinitionStore::count(std::string_view section) const {
  const auto found = counts_.find(section);
  return found != counts_.end() ? found->second : 0;
}

std::optional<std::string> DefinitionStore::record(std::string_view section, int n) const {
  std::string text = file_.ReadString(section, key(section, n), "");
  if (text.empty()) { return std::nullopt; }
  return text;
}

std::vector<std::string> DefinitionStore::names(std::string_view section) const {
  std::vector<std::string> names;
  while (const auto text = record(section, static_cast<int>(names.size()) + 1)) { names.push_back(recordName(*text)); }
  return names;
}

void DefinitionStore::put(std::string_view section, int n, std::string_view text) {
  write(section, n, text);
  flush();
}

void DefinitionStore::append(std::string_view section, std::string_view text) {
  const int n = ++counts_[std::string(section)];
  if (text.empty()) { return; }
  makeRoomForRecord(file_, section, definitionKind(section).keyPrefix, n);
  write(section, n, text);
  flush();
}

void DefinitionStore::remove(std::string_view section, int index) {
  const int last = count(section);
  if (index < 0 || index >= last) { return; }
  for (int n = index + 1; n < last; ++n) { write(section, n, record(section, n + 1).value_or("")); }
  write(section, last, "");
  counts_[std::string(section)] = last - 1;
  flush();
}

void DefinitionStore::eraseSection(std::string_view section) {
  file_.EraseSection(section);
  if (const auto found = counts_.find(section); found != counts_.end()) { found->second = 0; }
  flush();
}

int DefinitionStore::current(std::string_view section) const { return file_.ReadInt(section, "Current", 0); }

void DefinitionStore::setCurrent(std::string_view section, int index) { file_.WriteInt(section, "Current", index); }

void DefinitionStore::write(std::string_view section, int n, std::string_view text) {
  file_.WriteString(section, key(section, n), text);
}

}  // namespace ardenix::mech
