#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace ardenix::arch {

// The treads of a flight, in drawing units. The foot length runs from the flight's base to its first riser.
struct TreadRecord {
  std::string name;
  int treads = 15;
  double rise = 200.0;
  double going = 223.0;
  double foot = 350.0;
  double width = 1000.0;
  double nosing = 15.0;        // overhang over the riser below
  double nosingHeight = 15.0;  // thickness of the tread's edge, which is what is seen of it
};

// The railing of a stair. The heights of the rails count from the pitch line, or from the floor of a landing.
struct RailingRecord {
  std::string name;
  bool left = true;
  bool right = true;
  int treadsPerNewel = 5;
  double newelHeight = 20.0;  // above the guard rail
  double newelWidth = 60.0;
  double railWidth = 20.0;
  double guardHeight = 1000.0;
  double guardDepth = 70.0;
  bool bottomRail = true;
  double bottomHeight = 100.0;
  double bottomDepth = 70.0;
  bool balusters = true;  // of a stair with a bottom rail
  int balustersPerString = 5;
  double balusterWidth = 20.0;  // whole

  [[nodiscard]] bool hasRail() const { return left || right; }
  [[nodiscard]] bool hasBalusters() const { return hasRail() && bottomRail && balusters; }
};

// A number or flag of a record: its place among the record's fields, and what the dialog calls it.
template <class Record>
struct StairField {
  int place;
  std::string_view caption;
  std::string_view toolTip;
  std::variant<double Record::*, int Record::*, bool Record::*> member;
  bool whole = false;  // a length that is stored with decimals and read without
};
// In the order of the dialog.
std::span<const StairField<TreadRecord>> treadFields();
std::span<const StairField<RailingRecord>> railingFields();

// A missing field has the value above.
TreadRecord readTread(std::string_view record);
RailingRecord readRailing(std::string_view record);
std::string treadRecord(const TreadRecord& treads);
std::string railingRecord(const RailingRecord& railing);

// A stair that is drawn.
struct Stair {
  TreadRecord treads;
  RailingRecord railing;

  [[nodiscard]] double height() const { return treads.treads * treads.rise; }
  [[nodiscard]] double length() const { return treads.treads * treads.going; }
  [[nodiscard]] double pitch() const;  // degrees
  // Bays between newels but the first and the last; below 0 for a flight of fewer treads than two bays have.
  [[nodiscard]] int newelIndex() const { return treads.treads / railing.treadsPerNewel - 2; }
  [[nodiscard]] double newelPostHeight() const;
  [[nodiscard]] double balusterSpacing() const;
};

// Why a stair cannot be drawn, and which field of the dialog says so; nothing for one that can.
struct StairFault {
  std::string_view field;
  std::string_view message;
};
std::optional<StairFault> faultOf(const Stair& stair);

}  // namespace ardenix::arch
