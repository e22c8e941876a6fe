#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/cad_window.h"
#include "frame/host/dialog.h"
#include "frame/record_store.h"

namespace ardenix::arch {

// The sections that hold numbered lists of records.
inline constexpr std::string_view kWallTypes = "WALL_TYPES";
inline constexpr std::string_view kTreads = "STAIRS_TREADS";
inline constexpr std::string_view kRailings = "STAIRS_RAILINGS";
inline constexpr std::string_view kBuildingStandards = "BLDG_STD_TYPES";

// The architectural specification file, opened for one command: the settings of the commands and four lists of
// numbered records. Changes of records are on disk when the call returns, settings with flush(); a setting that was
// not flushed when the store goes is dropped. The host reports a file that cannot be read or written.
class ArchSpecStore {
 public:
  // Opens the file and counts its wall types, railings and treads. The building standards are counted when
  // they are first listed.
  ArchSpecStore(std::string_view path, CCadWindow& view);

  // ---- Records, numbered from 1 ---------------------------------------------------------------------------
  // Nothing where the record is missing or empty.
  [[nodiscard]] std::optional<std::string> readRecord(std::string_view section, int number) const {
    return records_.record(section, number);
  }
  void writeRecord(int number, std::string_view text, std::string_view section) { records_.put(section, number, text); }
  void deleteRecordKey(int number, std::string_view section) { records_.deleteKey(section, number); }
  // Appends the record as RecordStore does, adds its name to the list box and selects it.
  void addRecord(std::string_view text, const dialog::DropDownHandle& list, std::string_view section);
  // Removes the record behind a selection, counted from 0; the later ones move down a number. The entry
  // before becomes selected, or the first. A selection outside the list changes nothing.
  void removeRecord(int selection, const dialog::DropDownHandle& list, std::string_view section);
  // Fills the list box with the names of all records and counts them.
  void loadNames(const dialog::DropDownHandle& list, std::string_view section);
  [[nodiscard]] int count(std::string_view section) const { return records_.count(section); }

  // ---- Single settings ------------------------------------------------------------------------------------
  [[nodiscard]] int readInt(std::string_view section, std::string_view key, int fallback = 0) const;
  void writeInt(std::string_view section, std::string_view key, int value);
  // A switch that is off where its key is missing: a key for it is made only to switch it on.
  void writeOption(std::string_view section, std::string_view key, bool on);
  [[nodiscard]] double readDouble(std::string_view section, std::string_view key, double fallback) const;
  // With three decimals; more that a user wrote into the file stay until the value changes.
  void writeDouble(std::string_view section, std::string_view key, double value);
  [[nodiscard]] std::string readString(std::string_view section, std::string_view key, std::string_view fallback) const;
  void writeString(std::string_view section, std::string_view key, std::string_view value);
  void flush() { records_.flush(); }

  // ---- Layers offered by a dialog: those of the view, then others that are not among them ------------------
  // Those of all wall types.
  [[nodiscard]] std::vector<std::string> layersAndWallLayers() const;
  // Those of wall types alone, each once.
  [[nodiscard]] std::vector<std::string> wallLayers() const;
  // That of a setting.
  [[nodiscard]] std::vector<std::string> layersAndSetting(std::string_view section, std::string_view key) const;
  [[nodiscard]] std::vector<std::string> layersAnd(std::string_view name) const;

  [[nodiscard]] CCadWindow& view() const { return view_; }

 private:
  [[nodiscard]] std::vector<std::string> layersOfView() const;

  RecordStore records_;
  CCadWindow& view_;
};

}  // namespace ardenix::arch
