#include "arch/spec_store.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "frame/host/core_services.h"
#include "frame/records.h"

namespace ardenix::arch {

namespace {

constexpr RecordList kLists[] = {
    {.section = kWallTypes, .keyPrefix = "Wall"},
    {.section = kTreads, .keyPrefix = "Tread"},
    {.section = kRailings, .keyPrefix = "Rail"},
    {.section = kBuildingStandards, .keyPrefix = "BldgStd", .countedOnOpening = false},
};

void addMissing(std::vector<std::string>& names, std::string name) {
  if (std::ranges::find(names, name) == names.end()) { names.push_back(std::move(name)); }
}

}  // namespace

ArchSpecStore::ArchSpecStore(std::string_view path, CCadWindow& view)
    : records_(path, {std::begin(kLists), std::end(kLists)}), view_(view) {}

// ---- Records ------------------------------------------------------------------------------------------------

void ArchSpecStore::addRecord(std::string_view text, const dialog::DropDownHandle& list, std::string_view section) {
  records_.append(section, text);
  list.addItem(recordName(text));
  list.select(list.count() - 1);
}

void ArchSpecStore::removeRecord(int selection, const dialog::DropDownHandle& list, std::string_view section) {
  if (selection < 0 || selection >= list.count()) { return; }
  records_.remove(section, selection);
  list.removeItem(selection);
  list.select(std::max(selection - 1, 0));
}

void ArchSpecStore::loadNames(const dialog::DropDownHandle& list, std::string_view section) {
  list.setItems(records_.loadNames(section));
}

// ---- Single settings ----------------------------------------------------------------------------------------

int ArchSpecStore::readInt(std::string_view section, std::string_view key, int fallback) const {
  return records_.file().ReadInt(section, key, fallback);
}

void ArchSpecStore::writeInt(std::string_view section, std::string_view key, int value) {
  records_.file().WriteInt(section, key, value);
}

void ArchSpecStore::writeOption(std::string_view section, std::string_view key, bool on) {
  if (on != (readInt(section, key) != 0)) { writeInt(section, key, on ? 1 : 0); }
}

double ArchSpecStore::readDouble(std::string_view section, std::string_view key, double fallback) const {
  return records_.file().ReadDouble(section, key, fallback);
}

void ArchSpecStore::writeDouble(std::string_view section, std::string_view key, double value) {
  constexpr int kDecimals = 3;
  const bool losesDigits = std::fabs(coreDoubleRound(value, kDecimals) - value) > 1e-9;
  if (losesDigits && readDouble(section, key, coreDoubleRound(value, kDecimals)) == value) { return; }
  records_.file().WriteDouble(section, key, value, kDecimals);
}

std::string ArchSpecStore::readString(std::string_view section, std::string_view key, std::string_view fallback) const {
  return records_.file().ReadString(section, key, fallback);
}

void ArchSpecStore::writeString(std::string_view section, std::string_view key, std::string_view value) {
  records_.file().WriteString(section, key, value);
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

std::vector<std::string> ArchSpecStore::wallLayers() const {
  constexpr int kLayerField = 2;
  std::vector<std::string> names;
  for (int number = 1; const auto record = readRecord(kWallTypes, number); ++number) {
    addMissing(names, textField(*record, kLayerField));
  }
  return names;
}

std::vector<std::string> ArchSpecStore::layersAndWallLayers() const {
  std::vector<std::string> names = layersOfView();
  for (const std::string& name : wallLayers()) { addMissing(names, name); }
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

}  // namespace ardenix::arch
