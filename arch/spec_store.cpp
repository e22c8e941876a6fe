#include "arch/spec_store.h"

#include <algorithm>
#include <array>
#include <cassert>

#include "frame/host/core_services.h"
#include "frame/records.h"

namespace ardenix {

namespace {

struct RecordList {
  std::string_view section;
  std::string_view keyPrefix;
  bool countedOnOpening;
};

constexpr std::array kLists = {
    RecordList{kWallTypes, "Wall", true},
    RecordList{kTreads, "Tread", true},
    RecordList{kRailings, "Rail", true},
    RecordList{kBuildingStandards, "BldgStd", false},
};

size_t listOf(std::string_view section) {
  const auto* row = std::ranges::find(kLists, section, &RecordList::section);
  assert(row != kLists.end());
  return static_cast<size_t>(row - kLists.begin());
}

std::string recordKey(std::string_view section, int number) {
  return std::string(kLists[listOf(section)].keyPrefix) + std::to_string(number);
}

void addMissing(std::vector<std::string>& names, std::string name) {
  if (std::ranges::find(names, name) == names.end()) { names.push_back(std::move(name)); }
}

}  // namespace

ArchSpecStore::ArchSpecStore(std::string_view path, CCadWindow& view)
    : file_(path), view_(view), counts_(kLists.size(), 0) {
  for (size_t list = 0; list < kLists.size(); ++list) {
    if (kLists[list].countedOnOpening) { counts_[list] = countOf(kLists[list].section); }
  }
}

// ---- Records ------------------------------------------------------------------------------------------------

std::optional<std::string> ArchSpecStore::readRecord(std::string_view section, int number) const {
  std::string text = file_.ReadString(section, recordKey(section, number), "");
  if (text.empty()) { return std::nullopt; }
  return text;
}

void ArchSpecStore::writeRecord(int number, std::string_view text, std::string_view section) {
  file_.WriteString(section, recordKey(section, number), text);
}

void ArchSpecStore::deleteRecordKey(int number, std::string_view section) {
  writeRecord(number, "", section);
  file_.DeleteKey(section, recordKey(section, number));
}

void ArchSpecStore::addRecord(std::string_view text, const dialog::DropDownHandle& list, std::string_view section) {
  const size_t index = listOf(section);
  const int number = ++counts_[index];
  makeRoomForRecord(file_, section, kLists[index].keyPrefix, number);
  writeRecord(number, text, section);
  flush();
  list.addItem(recordName(text));
  list.select(list.count() - 1);
}

void ArchSpecStore::removeRecord(int selection, const dialog::DropDownHandle& list, std::string_view section) {
  if (selection < 0 || selection >= list.count()) { return; }
  list.removeItem(selection);
  int number = selection + 1;
  while (const auto later = readRecord(section, number + 1)) { writeRecord(number++, *later, section); }
  deleteRecordKey(number, section);
  flush();
  list.select(std::max(selection - 1, 0));
  --counts_[listOf(section)];
}

void ArchSpecStore::loadNames(const dialog::DropDownHandle& list, std::string_view section) {
  std::vector<std::string> names;
  while (const auto record = readRecord(section, static_cast<int>(names.size()) + 1)) {
    names.push_back(recordName(*record));
  }
  counts_[listOf(section)] = static_cast<int>(names.size());
  list.setItems(std::move(names));
}

int ArchSpecStore::count(std::string_view section) const { return counts_[listOf(section)]; }

int ArchSpecStore::countOf(std::string_view section) const {
  int count = 0;
  while (readRecord(section, count + 1)) { ++count; }
  return count;
}

// ---- Single settings ----------------------------------------------------------------------------------------

int ArchSpecStore::readInt(std::string_view section, std::string_view key, int fallback) const {
  return file_.ReadInt(section, key, fallback);
}

void ArchSpecStore::writeInt(std::string_view section, std::string_view key, int value) {
  file_.WriteInt(section, key, value);
}

std::string ArchSpecStore::readString(std::string_view section, std::string_view key, std::string_view fallback) const {
  return file_.ReadString(section, key, fallback);
}

void ArchSpecStore::writeString(std::string_view section, std::string_view key, std::string_view value) {
  file_.WriteString(section, key, value);
}

// ---- Layers -------------------------------------------------------------------------------------------------

std::vector<std::string> ArchSpecStore::layersOfView() const {
  std::vector<std::string> names;
  LayerDef layer;
  for (int index = 0; index < view_.gsGetLayerCount(); ++index) {
    if (view_.gsGetLayerDefIndex(index, layer) != 0) { names.push_back(layer.name); }
  }
  return names;
}

std::vector<std::string> ArchSpecStore::layersAndWallLayers() const {
  constexpr int kLayerField = 2;
  std::vector<std::string> names = layersOfView();
  for (int number = 1; const auto record = readRecord(kWallTypes, number); ++number) {
    std::array<char, 256> layer{};
    coreGetField(*record, "", layer.data(), static_cast<int>(layer.size()), kLayerField, kFieldSeparator);
    addMissing(names, layer.data());
  }
  return names;
}

std::vector<std::string> ArchSpecStore::layersAndSetting(std::string_view section, std::string_view key) const {
  return layersAnd(readString(section, key, ""));
}

std::vector<std::string> ArchSpecStore::layersAnd(std::string_view name) const {
  std::vector<std::string> names = layersOfView();
  addMissing(names, std::string(name));
  return names;
}

}  // namespace ardenix
