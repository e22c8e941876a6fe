#include "mech/definition_store.h"

#include "mech/definition_kinds.h"

namespace ardenix::mech {

namespace {

std::vector<RecordList> definitionLists() {
  std::vector<RecordList> lists;
  for (const DefinitionKind& kind : definitionKinds()) {
    lists.push_back({.section = kind.section, .keyPrefix = kind.keyPrefix, .keepsKeyOfLastRecord = true});
  }
  return lists;
}

}  // namespace

DefinitionStore::DefinitionStore(std::string_view fileName) : RecordStore(fileName, definitionLists()) {}

int DefinitionStore::current(std::string_view section) const { return file().ReadInt(section, "Current", 0); }

void DefinitionStore::setCurrent(std::string_view section, int index) { file().WriteInt(section, "Current", index); }

bool DefinitionStore::extraWanted(std::string_view section, std::string_view key) const {
  return file().ReadInt(section, key, 0) != 0;
}

void DefinitionStore::setExtra(std::string_view section, std::string_view key, bool wanted) {
  if (wanted || !file().ReadString(section, key, "").empty()) { file().WriteInt(section, key, wanted ? 1 : 0); }
}

}  // namespace ardenix::mech
