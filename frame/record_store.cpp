#include "frame/record_store.h"

#include <algorithm>
#include <cassert>

#include "frame/records.h"

namespace ardenix {

RecordStore::RecordStore(std::string_view fileName, std::vector<RecordList> lists)
    : file_(fileName), lists_(std::move(lists)), counts_(lists_.size(), 0) {
  for (const RecordList& list : lists_) {
    if (list.countedOnOpening) { loadNames(list.section); }
  }
}

// ---- Reading ------------------------------------------------------------------------------------------------

size_t RecordStore::indexOf(std::string_view section) const {
  const auto row = std::ranges::find(lists_, section, &RecordList::section);
  assert(row != lists_.end());
  return static_cast<size_t>(row - lists_.begin());
}

std::string RecordStore::key(size_t list, int n) const {
  return std::string(lists_[list].keyPrefix) + std::to_string(n);
}

std::optional<std::string> RecordStore::record(std::string_view section, int n) const {
  std::string text = file_.ReadString(section, key(indexOf(section), n), "");
  if (text.empty()) { return std::nullopt; }
  return text;
}

std::vector<std::string> RecordStore::names(std::string_view section) const {
  std::vector<std::string> names;
  while (const auto text = record(section, static_cast<int>(names.size()) + 1)) { names.push_back(recordName(*text)); }
  return names;
}

std::vector<std::string> RecordStore::loadNames(std::string_view section) {
  std::vector<std::string> loaded = names(section);
  counts_[indexOf(section)] = static_cast<int>(loaded.size());
  return loaded;
}

// ---- Changing -----------------------------------------------------------------------------------------------

void RecordStore::write(size_t list, int n, std::string_view text) {
  file_.WriteString(lists_[list].section, key(list, n), text);
}

void RecordStore::put(std::string_view section, int n, std::string_view text) {
  write(indexOf(section), n, text);
  flush();
}

void RecordStore::append(std::string_view section, std::string_view text) {
  const int n = ++counts_[indexOf(section)];
  if (text.empty()) { return; }
  makeRoom(section, n);
  put(section, n, text);
}

// The record at n and those that follow it without a gap move up a number: a list whose numbering had a gap can have
// records right behind its end.
void RecordStore::makeRoom(std::string_view section, int n) {
  int gap = n;
  while (record(section, gap)) { ++gap; }
  for (; gap > n; --gap) { write(indexOf(section), gap, *record(section, gap - 1)); }
}

void RecordStore::remove(std::string_view section, int index) {
  if (index < 0 || index >= count(section)) { return; }
  const size_t list = indexOf(section);
  int last = index + 1;
  while (const auto later = record(section, last + 1)) { write(list, last++, *later); }
  --counts_[list];
  if (lists_[list].keepsKeyOfLastRecord) { return put(section, last, ""); }
  deleteKey(section, last);
}

void RecordStore::deleteKey(std::string_view section, int n) {
  const size_t list = indexOf(section);
  write(list, n, "");
  file_.DeleteKey(section, key(list, n));
  flush();
}

void RecordStore::eraseSection(std::string_view section) {
  file_.EraseSection(section);
  counts_[indexOf(section)] = 0;
  flush();
}

}  // namespace ardenix
