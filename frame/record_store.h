#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/ini.h"

namespace ardenix {

// Where a list of numbered records stands, and what its file format lays down for it.
struct RecordList {
  std::string_view section;
  std::string_view keyPrefix;         // of the keys: "Bolt" for Bolt1, Bolt2, ...
  bool countedOnOpening = true;       // else its count is 0 until names are loaded
  bool keepsKeyOfLastRecord = false;  // a removal leaves the last key with an empty value; else it deletes the key
};

// An INI file with lists of numbered records, and with single keys. The records of a list are counted from 1
// without gaps; a missing key or an empty value ends the list. A record is one value of comma-separated fields,
// its name first. Every change of a record is on disk when the call returns. A section that is no list of the
// store is a mistake of ours and stops the program.
class RecordStore {
 public:
  // Opens the file and counts its records. Throws HostFailure for a file that is there but cannot be read. What
  // the rows point at must outlive the store.
  RecordStore(std::string_view fileName, std::vector<RecordList> lists);

  [[nodiscard]] int count(std::string_view section) const { return counts_[indexOf(section)]; }
  // Record n, counted from 1; nothing where it is missing or empty.
  [[nodiscard]] std::optional<std::string> record(std::string_view section, int n) const;
  // The names of the records 1, 2, 3, ... until the first that is missing.
  [[nodiscard]] std::vector<std::string> names(std::string_view section) const;
  // The same, and counts the list anew.
  std::vector<std::string> loadNames(std::string_view section);

  void put(std::string_view section, int n, std::string_view text);
  // The new record follows those that are counted; an empty text is counted and not written. What stood behind a gap
  // in the numbers is never overwritten: it moves up a number where it stands in the way, and is listed from the next
  // opening on.
  void append(std::string_view section, std::string_view text);
  // Removes the record at a list index, counted from 0; later records take the number before theirs. An index outside
  // the list changes nothing.
  void remove(std::string_view section, int index);
  // Ends the list at record n, whatever the count.
  void deleteKey(std::string_view section, int n);
  void eraseSection(std::string_view section);

  // Single keys. What is written reaches the disk with flush(), or with the next change of a record.
  [[nodiscard]] const TINIFile& file() const { return file_; }
  TINIFile& file() { return file_; }
  void flush() { file_.UpdateFile(); }

 private:
  [[nodiscard]] size_t indexOf(std::string_view section) const;
  void write(size_t list, int n, std::string_view text);
  [[nodiscard]] std::string key(size_t list, int n) const;
  void makeRoom(std::string_view section, int n);

  TINIFile file_;
  std::vector<RecordList> lists_;
  std::vector<int> counts_;  // one for each list
};

}  // namespace ardenix
