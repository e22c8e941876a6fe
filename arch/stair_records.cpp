#include "arch/stair_records.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "frame/drafting/point.h"
#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "frame/records.h"

namespace ardenix::arch {

namespace {

constexpr StairField<TreadRecord> kTreadFields[] = {
    {3, "Rise", "The height from one tread to the next", &TreadRecord::rise},
    {4, "Going", "The depth of a tread from nosing to nosing", &TreadRecord::going},
    {6, "Tread width", "The width of the flight", &TreadRecord::width},
    {5, "Foot length", "From the base of the flight to its first riser", &TreadRecord::foot},
    {7, "Nosing width", "How far a tread overhangs the riser below it", &TreadRecord::nosing},
    {8, "Nosing height", "The thickness of a tread at its edge", &TreadRecord::nosingHeight},
    {2, "Number of treads", "How many treads the flight has", &TreadRecord::treads},
};

constexpr StairField<RailingRecord> kRailingFields[] = {
    {15, "Balluster width", "The width of a baluster, in whole units", &RailingRecord::balusterWidth, true},
    {9, "Guard rail depth", "The depth of the guard rail, square to it", &RailingRecord::guardDepth},
    {5, "Newel height", "How far a newel stands above the guard rail", &RailingRecord::newelHeight},
    {6, "Newel width", "The width of a newel", &RailingRecord::newelWidth},
    {12, "Bottom rail depth", "The depth of the bottom rail, square to it", &RailingRecord::bottomDepth},
    {8, "Guard rail height", "The top of the guard rail above the pitch line", &RailingRecord::guardHeight},
    {11, "Bottom rail height", "The underside of the bottom rail above the pitch line", &RailingRecord::bottomHeight},
    {7, "Rail width", "The width of the rails on plan", &RailingRecord::railWidth},
    {4, "Treads per newel", "How many treads lie between newels", &RailingRecord::treadsPerNewel},
    {14, "Ballisters per string", "How many balusters stand between newels", &RailingRecord::balustersPerString},
    {2, "Left rail", "A rail on the left of somebody who walks up", &RailingRecord::left},
    {3, "Right rail", "A rail on the right of somebody who walks up", &RailingRecord::right},
    {10, "Bottom rail flag", "A bottom rail under the guard rail", &RailingRecord::bottomRail},
    {13, "Balluster flag", "Balusters between bottom rail and guard rail", &RailingRecord::balusters},
};

// ---- Fields -------------------------------------------------------------------------------------------------

template <class Record>
void readField(std::string_view text, const StairField<Record>& field, Record& record) {
  if (const auto* real = std::get_if<double Record::*>(&field.member)) {
    double& value = record.*(*real);
    value = field.whole ? coreGetFieldInt(text, static_cast<int>(value), field.place, kFieldSeparator)
                        : coreGetFieldDouble(text, value, field.place, kFieldSeparator);
  } else if (const auto* count = std::get_if<int Record::*>(&field.member)) {
    record.*(*count) = coreGetFieldInt(text, record.*(*count), field.place, kFieldSeparator);
  } else {
    bool& flag = record.*std::get<bool Record::*>(field.member);
    flag = flagField(text, field.place, flag);
  }
}

template <class Record>
Record readRecord(std::string_view text, std::span<const StairField<Record>> fields) {
  Record record;
  record.name = recordName(text);
  for (const StairField<Record>& field : fields) { readField(text, field, record); }
  return record;
}

template <class Record>
std::string fieldText(const Record& record, const StairField<Record>& field) {
  if (const auto* real = std::get_if<double Record::*>(&field.member)) {
    return numberText::format(",%.2f", record.*(*real));
  }
  if (const auto* count = std::get_if<int Record::*>(&field.member)) {
    return numberText::format(",%d", record.*(*count));
  }
  return record.*std::get<bool Record::*>(field.member) ? ",1" : ",0";
}

template <class Record>
std::string recordText(const Record& record, std::span<const StairField<Record>> fields) {
  std::string text = record.name;
  for (int place = 2; place < static_cast<int>(fields.size()) + 2; ++place) {
    text += fieldText(record, *std::ranges::find(fields, place, &StairField<Record>::place));
  }
  return text;
}

// ---- Rules --------------------------------------------------------------------------------------------------

struct StairRule {
  bool (*keeps)(const Stair& stair);
  StairFault fault;
};

template <class Record>
bool isPositive(const Record& record, const StairField<Record>& field) {
  if (const auto* real = std::get_if<double Record::*>(&field.member)) { return record.*(*real) > 0.0; }
  const auto* count = std::get_if<int Record::*>(&field.member);
  return count == nullptr || record.*(*count) > 0;
}

constexpr StairRule kStairRules[] = {
    {[](const Stair& stair) { return stair.treads.foot >= stair.treads.nosing; },
     {"Foot length", "The foot length may not be shorter than the nosing width!"}},
};

// These hold for a stair that has a railing.
constexpr StairRule kRailingRules[] = {
    {[](const Stair& stair) { return 2.0 * (stair.railing.newelWidth + stair.railing.railWidth) < stair.treads.width; },
     {"Tread width", "The tread width must be larger than the newels and rails of both sides!"}},
    {[](const Stair& stair) { return stair.treads.going >= stair.railing.newelWidth; },
     {"Going", "The going may not be narrower than the newel width!"}},
    {[](const Stair& stair) { return stair.railing.guardHeight >= stair.railing.guardDepth; },
     {"Guard rail height", "The guard rail may not be lower than its depth!"}},
    {[](const Stair& stair) {
       return !stair.railing.bottomRail || stair.railing.bottomHeight < stair.railing.guardHeight;
     },
     {"Bottom rail height", "The bottom rail must lie below the guard rail!"}},
};

template <class Record>
std::optional<StairFault> unsetField(const Record& record, std::span<const StairField<Record>> fields) {
  for (const StairField<Record>& field : fields) {
    if (!isPositive(record, field)) { return StairFault{field.caption, "The value must be larger than 0 (zero)!"}; }
  }
  return std::nullopt;
}

std::optional<StairFault> brokenRule(const Stair& stair, std::span<const StairRule> rules) {
  const auto broken = std::ranges::find_if(rules, [&stair](const StairRule& rule) { return !rule.keeps(stair); });
  if (broken == rules.end()) { return std::nullopt; }
  return broken->fault;
}

}  // namespace

std::span<const StairField<TreadRecord>> treadFields() { return kTreadFields; }
std::span<const StairField<RailingRecord>> railingFields() { return kRailingFields; }

TreadRecord readTread(std::string_view record) { return readRecord(record, treadFields()); }
RailingRecord readRailing(std::string_view record) { return readRecord(record, railingFields()); }
std::string treadRecord(const TreadRecord& treads) { return recordText(treads, treadFields()); }
std::string railingRecord(const RailingRecord& railing) { return recordText(railing, railingFields()); }

double Stair::pitch() const { return degrees(std::atan2(treads.rise, treads.going)); }

double Stair::newelPostHeight() const {
  const double climb = (treads.going + railing.newelWidth) * treads.rise / (2.0 * treads.going);
  return climb + railing.guardHeight + railing.newelHeight;
}

double Stair::balusterSpacing() const {
  return (railing.treadsPerNewel * treads.going - railing.newelWidth) / (railing.balustersPerString + 1);
}

std::optional<StairFault> faultOf(const Stair& stair) {
  if (const auto unset = unsetField(stair.treads, treadFields())) { return unset; }
  if (const auto unset = unsetField(stair.railing, railingFields())) { return unset; }
  if (const auto broken = brokenRule(stair, kStairRules)) { return broken; }
  return stair.railing.hasRail() ? brokenRule(stair, kRailingRules) : std::nullopt;
}

}  // namespace ardenix::arch
