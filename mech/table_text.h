#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/cad_window.h"

// Tables as text files: a line for each row, fields between commas. A field that would be read back otherwise stands in
// quotes, with the quotes in it doubled.
namespace ardenix::mech {

inline constexpr std::string_view kTextFilesFilter = "Text Files (*.txt;*.asc;*.csv;*.tab)|*.txt; *.asc; *.csv; *.tab|";

using TableRow = std::vector<std::string>;

// As a file holds a field.
std::string quotedField(std::string_view field);
std::string joinedFields(const TableRow& fields);
// Blanks around a field do not belong to it, but for those in quotes.
TableRow splitFields(std::string_view line, char separator = ',');
// What stands between the fields of a file with this first line: a comma; where that has none, semicolons or tabs.
char separatorOf(std::string_view firstLine);

// Reads a table; where that fails, says so and gives nothing. A line of more characters than `longestLine` is refused.
std::optional<std::vector<TableRow>> readTable(const std::string& path, size_t longestLine, CWnd* owner);
// Writes the file whole or says that it could not, and in the status line why.
bool writeLines(const std::string& path, std::span<const std::string> lines, CCadWindow& view, CWnd* owner);

}  // namespace ardenix::mech
