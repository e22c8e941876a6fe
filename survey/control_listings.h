#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ardenix::survey {

// A point of a published listing as the store of control points keeps it: key and value of an INI entry.
struct ListedPoint {
  std::string key;
  std::string value;
};

// Lines of the published listings, columns counted from 1; decimal marks are full stops or commas, and a comma is kept
// as a full stop. Lines that are no point, have no name or stand at 0.00 are skipped.

// Beacons. A heading line of 49 to 59 characters with "   RSA   " at 36 gives the degree square at 45 to 48. A point
// line has decimal marks at 39 (Y), 51 (X) and 60 (height): number, name, Y, X. Key: name, blank, square/number.
std::vector<ListedPoint> beaconsOfListing(const std::vector<std::string>& lines);
// Town survey marks: decimal marks at 29 (Y), 41 (X) and 50; name, Y, X. Key: the name.
std::vector<ListedPoint> marksOfListing(const std::vector<std::string>& lines);

// Comma-delimited: name, number, Y, X of a beacon, its number perhaps empty; name, Y, X of a mark.
std::vector<ListedPoint> beaconsOfTable(const std::vector<std::string>& lines);
std::vector<ListedPoint> marksOfTable(const std::vector<std::string>& lines);

}  // namespace ardenix::survey
