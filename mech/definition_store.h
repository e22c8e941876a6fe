#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/ini.h"

namespace ardenix::mech {

// The mechanical configuration file: the libraries of definitions, and the settings that the dialogs and
// the drawings read. A definition is one value of comma-separated fields, the name first; the records of a
// section are numbered from 1 without gaps, an empty value ends them. Every change of a record is on disk
// when the call returns.
class DefinitionStore {
 public:
  // Opens the file and counts its records.
  explicit DefinitionStore(std::string_view fileName);

  [[nodiscard]] int count(std::string_view section) const;
  // Record n, counted from 1; nothing where it is missing or empty.
  [[nodiscard]] std::optional<std::string> record(std::string_view section, int n) const;
  // The names of the records 1, 2, 3, ... until the first that is missing.
  [[nodiscard]] std::vector<std::string> names(std::string_view section) const;

  void put(std::string_view section, int n, std::string_view text);
  // The new record follows those that names() lists. What stood behind a gap in the numbers is never overwritten: it
  // moves down where it stands in the way, and is listed from the next opening on.
  void append(std::string_view section, std::string_view text);
  // Removes the record at a list index, counted from 0. Later records move up; the key that was the last
  // stays with an empty value. An index outside the list changes nothing.
  void remove(std::string_view section, int index);
  void eraseSection(std::string_view section);

  // The list index of the definition last used. Setting it reaches the disk with flush().
  [[nodiscard]] int current(std::string_view section) const;
  void setCurrent(std::string_view section, int index);

  // Single keys of "Defaults" and "Setup". What is written reaches the disk with flush().
  [[nodiscard]] const TINIFile& file() const { return file_; }
  TINIFile& file() { return file_; }
  void flush() { file_.UpdateFile(); }

 private:
  void write(std::string_view section, int n, std::string_view text);

  TINIFile file_;
  std::map<std::string, int, std::less<>> counts_;
};

}  // namespace ardenix::mech
