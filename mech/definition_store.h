#pragma once

#include <string_view>

#include "frame/record_store.h"

namespace ardenix::mech {

// What the dialogs of all kinds were left with.
inline constexpr std::string_view kDefaultsSection = "Defaults";

// The mechanical configuration file: the libraries of definitions, one list of records for each kind, and the
// settings that the dialogs and the drawings read. A list whose record was deleted keeps the last key, empty.
class DefinitionStore : public RecordStore {
 public:
  // Opens the file and counts its records.
  explicit DefinitionStore(std::string_view fileName);

  // The list index of the definition last used. Setting it reaches the disk with flush().
  [[nodiscard]] int current(std::string_view section) const;
  void setCurrent(std::string_view section, int index);

  // What can be drawn with besides, kept under a key of a section: off where there is none. A file that does not name
  // it is left without it where it is not wanted.
  [[nodiscard]] bool extraWanted(std::string_view section, std::string_view key) const;
  void setExtra(std::string_view section, std::string_view key, bool wanted);
};

}  // namespace ardenix::mech
