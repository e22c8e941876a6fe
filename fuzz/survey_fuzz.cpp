#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "frame/host/core_services.h"
#include "frame/records.h"
#include "fuzz/laws.h"
#include "survey/control_listings.h"
#include "survey/control_point.h"
#include "survey/sectional/section_file.h"
#include "survey/text_row.h"

// The input is read as a listing of control points in every form, and each of its lines as a row of a settings file and
// as a section. What a listing gives has a name and coordinates; a text keeps its commas; a control point reads back as
// written.
namespace {

using ardenix::commasHidden;
using ardenix::commasRestored;
using fuzzing::require;
using namespace ardenix::survey;

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (size_t at = 0; at <= text.size();) {
    const size_t end = std::min(text.find('\n', at), text.size());
    lines.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  return lines;
}

void checkPoints(const std::vector<ListedPoint>& points) {
  for (const ListedPoint& point : points) {
    require(!point.key.empty());
    const size_t y = point.value.rfind(',', point.value.rfind(',') - 1);
    const size_t x = point.value.rfind(',');
    require(coreIsNumeric(point.value.substr(x + 1)) != 0);
    require(coreIsNumeric(point.value.substr(y == std::string::npos ? 0 : y + 1, x - y - 1)) != 0);
  }
}

void checkSection(const std::string& line) {
  const auto section = sectionOfLine(line);
  if (!section) { return; }
  require(section->number != 0 && section->building >= 0 && section->area >= 1);
  require(section->unit.size() <= static_cast<size_t>(kLongestUnit) && std::isfinite(section->fixedQuota));
}

void checkRow(const std::string& line) {
  const TextRow row = textRowOf(line);
  require(!row.font.empty());
  lineRowOf(line);
  if (line.find("_COMMA") == std::string::npos) {  // the format cannot hold its own word
    const std::string hidden = commasHidden(line);
    require(hidden.find(',') == std::string::npos && commasRestored(hidden) == line);
  }
  const std::string once = controlPointText(controlPointOf(line));
  require(controlPointText(controlPointOf(once)) == once);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::vector<std::string> lines = linesOf({reinterpret_cast<const char*>(data), size});
  for (const auto read : {beaconsOfListing, marksOfListing, beaconsOfTable, marksOfTable}) { checkPoints(read(lines)); }
  for (const std::string& line : lines) {
    checkRow(line);
    checkSection(line);
  }
  return 0;
}
