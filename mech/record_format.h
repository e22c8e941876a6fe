#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/records.h"

namespace ardenix {

// A field of a definition's record after its name. The format says what it holds: "%.3f" a number, "%d" an
// integer or a list index, "%s" a text.
struct RecordField {
  std::string_view label;
  std::string_view format = "%.3f";
  double fallback = 0.0;  // of a field that is missing
};

std::span<const RecordField> boltFields();
std::span<const RecordField> screwFields();
std::span<const RecordField> nutFields();
std::span<const RecordField> holeFields();
std::span<const RecordField> rivetFields();

// The numbers of a record, one for each field of the format. A missing field gives its default.
std::vector<double> readRecord(std::string_view record, std::span<const RecordField> fields);
// As above, with the thread length of a hole whose record has none: what is left of it below its countersink.
std::vector<double> readHoleRecord(std::string_view record);

// The record of a name and the numbers, each in its field's format.
std::string writeRecord(std::string_view name, std::span<const double> values, std::span<const RecordField> fields);

}  // namespace ardenix
