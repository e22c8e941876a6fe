#include "mech/record_format.h"

#include <cassert>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"

namespace ardenix {

namespace {

constexpr RecordField kBoltFields[] = {
    {"Head size"}, {"Head height"}, {"Thread diameter"}, {"Length"}, {"Thread length"}, {"Minor Dia"},
};

constexpr RecordField kScrewFields[] = {
    {"Head size"}, {"Head hgt"},          {"Thread diameter"}, {"Length"},          {"Shank length"},
    {"Minor dia"}, {"Shoulder diameter"}, {"Key size"},        {"Head Type", "%d"}, {"Head Key", "%d"},
};

constexpr RecordField kNutFields[] = {
    {"Head size"},        {"Head height"}, {"Thread Dia"}, {"Washer diameter"}, {"Minor Dia"},
    {"Washer thickness"}, {"Slot Width"},  {"Slot Depth"}, {"Type", "%d"},      {"Shape", "%d"},
};

constexpr RecordField kHoleFields[] = {
    {"Hole diameter"},   {"Thread diameter"},  {"Hole length"},     {"Countersink depth"},
    {"Hole type", "%d"}, {"Hole range", "%d"}, {"Counterbore dia"}, {"Thread length"},
};

constexpr RecordField kRivetFields[] = {
    {"Nominal dia"}, {"Left head height"},  {"Left head diameter"},  {"Left head type", "%d"},
    {"Length"},      {"Right head height"}, {"Right head diameter"}, {"Right head type", "%d"},
};

bool isInteger(const RecordField& field) { return field.format == "%d"; }

}  // namespace

std::span<const RecordField> boltFields() { return kBoltFields; }
std::span<const RecordField> screwFields() { return kScrewFields; }
std::span<const RecordField> nutFields() { return kNutFields; }
std::span<const RecordField> holeFields() { return kHoleFields; }
std::span<const RecordField> rivetFields() { return kRivetFields; }

std::vector<double> readRecord(std::string_view record, std::span<const RecordField> fields) {
  std::vector<double> values;
  int index = 2;
  for (const RecordField& field : fields) {
    values.push_back(isInteger(field)
                         ? coreGetFieldInt(record, static_cast<int>(field.fallback), index, kFieldSeparator)
                         : coreGetFieldDouble(record, field.fallback, index, kFieldSeparator));
    ++index;
  }
  return values;
}

std::vector<double> readHoleRecord(std::string_view record) {
  std::vector<double> values = readRecord(record, kHoleFields);
  enum { kHoleLength = 2, kCountersinkDepth = 3, kThreadLength = 7 };
  values[kThreadLength] =
      coreGetFieldDouble(record, values[kHoleLength] - values[kCountersinkDepth], kThreadLength + 2, kFieldSeparator);
  return values;
}

std::string writeRecord(std::string_view name, std::span<const double> values, std::span<const RecordField> fields) {
  assert(values.size() == fields.size());
  std::string record(name);
  for (size_t i = 0; i < fields.size(); ++i) {
    record += kFieldSeparator;
    record += isInteger(fields[i]) ? numberText::format(fields[i].format, static_cast<int>(values[i]))
                                   : numberText::format(fields[i].format, values[i]);
  }
  return record;
}

}  // namespace ardenix
