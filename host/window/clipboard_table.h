#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brevan {

// What a spreadsheet copies: lines of fields between tabs. A field that stands in quotes may hold tabs, line breaks and
// quotes, these doubled. A line end at the end begins no further line.
std::vector<std::vector<std::string>> clipboardRows(std::string_view text);

}  // namespace brevan
